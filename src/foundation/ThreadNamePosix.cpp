#include "foundation/ThreadName.h"

#include <pthread.h>

namespace {
constexpr size_t kMaxThreadNameBytes = 15;
}

bool SetCurrentThreadName(const std::string& name) {
    const std::string cut = name.substr(0, kMaxThreadNameBytes);
    return ::pthread_setname_np(::pthread_self(), cut.c_str()) == 0;
}
