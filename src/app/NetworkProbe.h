#pragma once
// Whether a web server answers an address with status 200, asked once without the cache.

#include <string>

// The request gives up after this long and counts as unreachable.
inline constexpr int kReachableTimeoutMs = 5000;

bool IsUrlReachable(const std::string& url_I, int timeoutMs_I = kReachableTimeoutMs);
