#include "TraceCapture.h"
#include "foundation/CImportWin32API.h"
#include "foundation/Trace.h"

#include <gtest/gtest.h>

namespace {

class CMathAPI : public CImportWin32API {
public:
    CMathAPI(const wchar_t* file, bool load, bool quiet) : CImportWin32API(file, load, quiet) {}
    VRX_IMPORT_FUNCTION(double(double), cos, -2.0);
    VRX_IMPORT_FUNCTION(int(int), no_such_function_here, -1);
    VRX_IMPORT_FUNCTION(void(int), no_such_procedure_here);
};

} // namespace

TEST(ImportWin32API, MissingLibraryIsQuietWhenAskedAndEveryWrapperFailsSoftly) {
    for (const bool quiet : {true, false}) {
        CTraceCapture capture;
        CMathAPI api(L"libNoSuchBridge.so.7", true, quiet);
        SetLastImportError(0);
        EXPECT_FALSE(api.Load());
        EXPECT_EQ(api.cos(0.0), -2.0);
        EXPECT_EQ(GetLastImportError(), CImportWin32API::kErrorCallNotImplemented);
        EXPECT_EQ(capture.Lines().rfind("Import Init: Could not load libNoSuchBridge.so.7", 0),
                  quiet ? std::string::npos : 0u);
    }
}

TEST(ImportWin32API, MissingFunctionInAPresentLibrary) {
    CMathAPI api(L"libm.so.6", false, true);
    ASSERT_TRUE(api.Load());
    SetLastImportError(0);
    EXPECT_EQ(api.no_such_function_here(3), -1);
    EXPECT_EQ(GetLastImportError(), 120u);
    SetLastImportError(0);
    api.no_such_procedure_here(3);
    EXPECT_EQ(GetLastImportError(), 120u);
    SetLastImportError(0);
    EXPECT_EQ(api.cos(0.0), 1.0);
    EXPECT_TRUE(api.cos.IsBound());
    EXPECT_EQ(GetLastImportError(), 0u);
}
