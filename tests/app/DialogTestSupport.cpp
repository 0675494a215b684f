#include "DialogTestSupport.h"

#include "DialogHarness.h"
#include "model/UiDisplayDelegate.h"

#include <gtest/gtest.h>

void EnsureTestApplication() {
    TestApplication();
}

CDialogRig::CDialogRig(std::string_view description_I, const std::string& language_I) {
    mOptions.language = LanguageProvider(language_I);
    std::string error;
    mPlatform = CSimulatedPlatform::FromDescription(description_I, error);
    if (mPlatform == nullptr) {
        ADD_FAILURE() << error;
        return;
    }
    mConfig = std::make_unique<CDisplayConfigInterface>(mOptions, mPlatform);
    mConfig->SetCurrentDisplay(0);
    EXPECT_NE(mConfig->CurrentDisplay(), nullptr) << description_I;
}

UiDisplayDelegate& CDialogRig::Display() {
    return *mConfig->CurrentDisplay();
}

int CDialogRig::Current(uint8_t code_I) {
    const std::optional<uint16_t> value = Sim().Scaler().Current(code_I);
    return value ? *value : -1;
}
