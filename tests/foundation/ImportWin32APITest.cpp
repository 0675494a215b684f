#include "TraceCapture.h"
#include "foundation/CImportWin32API.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class CMathAPI : public CImportWin32API {
public:
    CMathAPI(const wchar_t* file, bool load, bool quiet) : CImportWin32API(file, load, quiet) {}
    VRX_IMPORT_FUNCTION(double(double), cos, -2.0);
    VRX_IMPORT_FUNCTION(int(int), no_such_function_here, -1);
    VRX_IMPORT_FUNCTION(void(int), no_such_procedure_here);
    VRX_IMPORT_FUNCTION(long(const char*), another_missing_one);
};

} // namespace

TEST(ImportWin32API, MissingLibraryIsQuietWhenAskedAndEveryWrapperFailsSoftly) {
    struct SCase {
        bool load;
        bool quiet;
        std::string lines;
    };
    const SCase cases[] = {
        {true, true, ""},
        {false, true, ""},
        {true, false, "Import Init: Could not load libNoSuchBridge.so.7 (126)\n"},
    };
    for (const SCase& c : cases) {
        SCOPED_TRACE(c.lines);
        CTraceCapture capture;
        CMathAPI api(L"libNoSuchBridge.so.7", c.load, c.quiet);
        SetLastImportError(0);
        EXPECT_FALSE(api.Load());
        EXPECT_EQ(api.GetProc("cos"), nullptr);
        EXPECT_EQ(api.cos(0.0), -2.0);
        EXPECT_EQ(GetLastImportError(), CImportWin32API::kErrorCallNotImplemented);
        EXPECT_FALSE(api.cos.IsBound());
        EXPECT_EQ(capture.Lines().substr(0, c.lines.size()), c.lines);
        if (c.lines.empty()) {
            EXPECT_EQ(capture.Lines(), "");
        }
    }
}

TEST(ImportWin32API, MissingFunctionInAPresentLibrary) {
    CTraceCapture capture;
    CMathAPI api(L"libm.so.6", true, false);
    ASSERT_TRUE(api.Load());

    SetLastImportError(0);
    EXPECT_EQ(api.no_such_function_here(3), -1);
    EXPECT_EQ(GetLastImportError(), 120u);
    SetLastImportError(0);
    api.no_such_procedure_here(3);
    EXPECT_EQ(GetLastImportError(), 120u);
    EXPECT_EQ(api.another_missing_one("x"), 0);
    EXPECT_EQ(
        capture.Lines().rfind("GetProcAddress: no_such_function_here not found in libm.so.6\n", 0),
        0u);

    SetLastImportError(0);
    EXPECT_EQ(api.cos(0.0), 1.0);
    EXPECT_TRUE(api.cos.IsBound());
    EXPECT_EQ(GetLastImportError(), 0u);
    EXPECT_FALSE(api.no_such_function_here.IsBound());
}

TEST(ImportWin32API, MappedLibraryIsFoundWithoutLoadingAndErrorsStayPerThread) {
    CMathAPI mapped(L"libm.so.6", false, true);
    EXPECT_TRUE(mapped.Load());
    EXPECT_EQ(mapped.cos(0.0), 1.0);

    SetLastImportError(5);
    uint32_t otherError = 0;
    std::thread other([&] {
        mapped.no_such_function_here(1);
        otherError = GetLastImportError();
    });
    other.join();
    EXPECT_EQ(otherError, 120u);
    EXPECT_EQ(GetLastImportError(), 5u);
}
