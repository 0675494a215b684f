#pragma once
// Binds a library by name at run time, so that a missing library only removes what needs it.
// A child class per library declares one CImportedFunction per bound function, named as the
// library names it:
//
//     class CMathAPI : public CImportWin32API {
//     public:
//         CMathAPI() : CImportWin32API(L"libm.so.6", true, true) {}
//         VRX_IMPORT_FUNCTION(double(double), cos);
//     };

#include <atomic>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>

// The calling thread's error of the last wrapper call that found no function.
uint32_t GetLastImportError();
void SetLastImportError(uint32_t error);

class CImportWin32API {
public:
    // The error a wrapper leaves when its function is missing: call not implemented.
    static constexpr uint32_t kErrorCallNotImplemented = 120;

    // load_I true loads the library and unloads it at the end; false only finds it when the
    // process already has it. quiet_I silences the two failure traces.
    CImportWin32API(std::wstring fileName_I, bool load_I, bool quiet_I);
    virtual ~CImportWin32API();
    CImportWin32API(const CImportWin32API&) = delete;
    CImportWin32API& operator=(const CImportWin32API&) = delete;

    // Loads the library once; whether it is there.
    bool Load();
    // The function's address or null, loading the library first.
    void* GetProc(const char* name_I);

    const std::wstring& FileName() const { return mFileName; }

protected:
    void* m_hDll = nullptr;
    std::wstring mFileName;
    bool mLoad;
    bool mQuiet;
};

// A wrapper that looks its function up on first use and caches only a hit. A miss sets the
// last import error to 120 and returns the failure value; the next call looks again.
template <typename Signature>
class CImportedFunction;

template <typename Result, typename... Arguments>
class CImportedFunction<Result(Arguments...)> {
    using Function = Result (*)(Arguments...);
    using Failure = std::conditional_t<std::is_void_v<Result>, bool, Result>;

public:
    CImportedFunction(CImportWin32API& library_I, const char* name_I, Failure failure_I = {})
        : mLibrary(library_I), mName(name_I), mFailure(failure_I) {}

    Result operator()(Arguments... arguments) {
        Function function = mFunction.load(std::memory_order_relaxed);
        if (function == nullptr) {
            function = reinterpret_cast<Function>(mLibrary.GetProc(mName));
            if (function == nullptr) {
                SetLastImportError(CImportWin32API::kErrorCallNotImplemented);
                if constexpr (std::is_void_v<Result>) {
                    return;
                } else {
                    return mFailure;
                }
            }
            mFunction.store(function, std::memory_order_relaxed);
        }
        return function(std::forward<Arguments>(arguments)...);
    }

    bool IsBound() const { return mFunction.load(std::memory_order_relaxed) != nullptr; }

private:
    CImportWin32API& mLibrary;
    const char* mName;
    Failure mFailure;
    std::atomic<Function> mFunction{nullptr};
};

// Declares a member wrapper named as the bound function, in a class derived from
// CImportWin32API. An optional last argument is the value a missing function returns; without
// it the wrapper returns 0 (or nothing, for a void function).
#define VRX_IMPORT_FUNCTION(signature, name, ...)                                                  \
    CImportedFunction<signature> name {                                                            \
        *this, #name __VA_OPT__(, ) __VA_ARGS__                                                    \
    }
