#include "foundation/CImportWin32API.h"

#include "foundation/StringUtilities.h"
#include "foundation/Trace.h"

#include <dlfcn.h>

namespace {

// What the binding reports when the system can't find the library.
constexpr int kErrorModuleNotFound = 126;

thread_local uint32_t tLastImportError = 0;

} // namespace

uint32_t GetLastImportError() {
    return tLastImportError;
}

void SetLastImportError(uint32_t error) {
    tLastImportError = error;
}

CImportWin32API::CImportWin32API(std::wstring fileName_I, bool load_I, bool quiet_I)
    : mFileName(std::move(fileName_I)), mLoad(load_I), mQuiet(quiet_I) {}

CImportWin32API::~CImportWin32API() {
    if (mLoad && m_hDll != nullptr) {
        ::dlclose(m_hDll);
    }
}

bool CImportWin32API::Load() {
    if (m_hDll != nullptr) {
        return true;
    }
    const std::string name = ToNarrow(mFileName);
    const int mode = mLoad ? RTLD_NOW | RTLD_LOCAL : RTLD_NOW | RTLD_LOCAL | RTLD_NOLOAD;
    m_hDll = ::dlopen(name.c_str(), mode);
    if (m_hDll == nullptr && !mQuiet) {
        Trace("Import Init: Could not load %S (%d)\n", mFileName.c_str(), kErrorModuleNotFound);
        VRX_ASSERT(m_hDll);
    }
    return m_hDll != nullptr;
}

void* CImportWin32API::GetProc(const char* name_I) {
    if (!Load()) {
        return nullptr;
    }
    void* procAddr = ::dlsym(m_hDll, name_I);
    if (procAddr == nullptr && !mQuiet) {
        Trace("GetProcAddress: %s not found in %s\n", name_I, ToNarrow(mFileName).c_str());
        VRX_ASSERT(procAddr);
    }
    return procAddr;
}
