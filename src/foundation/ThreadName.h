#pragma once
// Names the calling thread for debuggers and system tools.

#include <string>

// The system keeps at most 15 bytes of the name; longer names are cut. Returns false when the
// system refuses the name.
bool SetCurrentThreadName(const std::string& name);
