#pragma once
// The frame of a named background task: the thread takes the name, and its start, end and any
// exception that escapes it are traced. An exception is passed on, which ends the process.

#include <cstdint>
#include <functional>
#include <string>

uint32_t RunInThreadFrame(const std::wstring& name_I, const std::function<void()>& body_I);
