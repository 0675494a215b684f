// The two DDC/CI exchanges of a display session: Get VCP Feature into an option, and Set VCP
// Feature of an option's value followed by the display's settle time.

#include "ddc/Frames.h"
#include "ddc/ReplyFrames.h"
#include "foundation/ScopeTimer.h"
#include "foundation/TimeSeam.h"
#include "foundation/Trace.h"
#include "model/CDisplay.h"

namespace {

// Every exchange asks for a reply buffer of this size and leaves retrying to the session.
constexpr unsigned kExpectedReplySize = 38;
constexpr int kSendRetries = 0;

// Seconds between the request and reading its reply.
constexpr double kReadDelay = 0.07;
constexpr double kWriteDelay = 0.07;
constexpr double kLuminanceWriteDelay = 0.13;
constexpr double kDisplayScalingWriteDelay = 0.25;

// The least a write's acknowledgement has.
constexpr size_t kWriteReplySize = 2;

// Every write lets the display settle; some features need far longer before the next request.
constexpr uint32_t kSettleMs = 50;

struct SSettle {
    vcpCode code;
    uint32_t sleepsMs[2];
};

const SSettle kExtraSettles[] = {
    {vcpC_DisplayPresets, {700, 1300}},
    {vcpC_UniformityCompensation, {1000, 0}},
    {vcpC_RestoreFactoryDefaults, {5000, 0}},
    {vcpC_RestoreFactoryColorDefaults, {5000, 0}},
};

// The code an exchange of the option is about; undefined when there is nothing to exchange.
vcpCode ExchangedCode(const std::shared_ptr<VCPOptionBase>& option_I) {
    if (!option_I) {
        VRX_ASSERT(option_I.get());
        return vcpC_Undefined;
    }
    return option_I->GetCode();
}

} // namespace

void CDisplay::ReadVCPValue_(std::shared_ptr<VCPOptionBase> option_I) {
    const vcpCode code = ExchangedCode(option_I);
    if (code == vcpC_Undefined) {
        return;
    }
    const std::string name = VCPCodeToString(code);
    CScopeTimer timer("CDisplay::ReadVCPValue_" + name);
    if (gTraceEnabled) {
        Trace("ReadVCPValue [0x%X] %s\n", static_cast<unsigned>(code), name.c_str());
    }
    VRX_ASSERT(!option_I->HasError());
    option_I->ClearError();

    const SVCPCodeInfo& info = option_I->Info();
    if (info.Readable() && info.Table()) {
        // A table read is a silent no-op: the text never reaches a caller.
        option_I->SetError("Table codes not supported");
        option_I->Revert();
    } else if (info.Readable()) {
        ByteVector inBuffer;
        if (mConnector) {
            inBuffer = mConnector->SendRequest(BuildGetVCPFeature(static_cast<uint8_t>(code)),
                                               kReadDelay, kExpectedReplySize, kSendRetries);
        }
        // The check byte goes unverified on purpose: scalers get it wrong and the data is good.
        if (!inBuffer.empty()) {
            inBuffer.pop_back();
        }
        const char* fault = nullptr;
        std::optional<SFeatureReply> reply;
        if (inBuffer.size() < kFeatureReplySize) {
            fault = ShortReplyFault(inBuffer);
        } else {
            reply = ParseFeatureReply(inBuffer, static_cast<uint8_t>(code), fault);
        }
        if (!reply) {
            option_I->SetError(fault);
        } else {
            const bool continuous = info.Continuous();
            int32_t max = 0;
            int32_t value = 0;
            if (!continuous && code == vcpC_InputSource) {
                // Only the low byte of the present value names the input.
                VRX_ASSERT((reply->present >> 8) == 0x01);
                value = static_cast<int32_t>(static_cast<uint32_t>(reply->maximum) << 16 |
                                             (reply->present & 0xFFu));
            } else if (!continuous) {
                value = static_cast<int32_t>(reply->Combined());
            } else {
                max = reply->maximum;
                value = reply->present;
            }

            if (option_I->IsOriginalSet()) {
                if (continuous) {
                    VRX_ASSERT(option_I->GetRange().maximum == max);
                }
                // A refused value is a warning, not a failure: the old value stays.
                if (!option_I->IsCurrentValue(value) && !option_I->SetValue(value)) {
                    if (continuous) {
                        Trace("WARNING - Continuous SetValue failed\n");
                        VRX_ASSERT_NOT_REACHED("Continuous SetValue failed");
                    } else {
                        Trace("WARNING: Non-Continuous SetValue failed\n");
                        VRX_ASSERT_NOT_REACHED("Non-Continuous SetValue failed");
                    }
                }
            } else {
                if (continuous) {
                    option_I->SetMaximum(max);
                }
                if (!option_I->SetOriginal(value)) {
                    if (continuous) {
                        Trace("WARNING - Continuous SetOriginal failed\n");
                        VRX_ASSERT_NOT_REACHED("Continuous SetOriginal failed");
                    } else {
                        Trace("WARNING: Non-Continuous SetOriginal failed\n");
                        VRX_ASSERT_NOT_REACHED("Non-Continuous SetOriginal failed");
                    }
                }
                option_I->Revert();
            }
        }
    }
    if (gTraceEnabled && option_I->HasError()) {
        Trace("ReadVCPValue %s failed %s\n", name.c_str(), option_I->GetError().c_str());
    }
}

void CDisplay::WriteVCPValue_(std::shared_ptr<VCPOptionBase> option_I) {
    const vcpCode code = ExchangedCode(option_I);
    if (code == vcpC_Undefined) {
        return;
    }
    const std::string name = VCPCodeToString(code);
    CScopeTimer timer("CDisplay::WriteVCPValue_" + name);
    if (gTraceEnabled) {
        Trace("WriteVCPValue %s\n", name.c_str());
    }

    const SVCPCodeInfo& info = option_I->Info();
    if (info.Writable() && !option_I->HasError()) {
        if (info.Table()) {
            option_I->SetError("Table codes not supported");
        } else {
            const double delay = code == vcpC_DisplayScaling ? kDisplayScalingWriteDelay
                                 : code == vcpC_Luminance    ? kLuminanceWriteDelay
                                                             : kWriteDelay;
            ByteVector reply;
            if (mConnector) {
                reply = mConnector->SendRequest(
                    BuildSetVCPFeature(static_cast<uint8_t>(code),
                                       static_cast<uint32_t>(option_I->GetValue())),
                    delay, kExpectedReplySize, kSendRetries);
            }
            // Any acknowledgement will do; its content and check byte are not looked at.
            if (!reply.empty()) {
                reply.pop_back();
            }
            if (reply.size() < kWriteReplySize) {
                option_I->SetError(mConnector && mConnector->IsOpen() ? "Send request failed"
                                                                      : "Device not open");
            }

            SleepMs(kSettleMs);
            for (const SSettle& settle : kExtraSettles) {
                if (settle.code != code) {
                    continue;
                }
                for (const uint32_t sleepMs : settle.sleepsMs) {
                    if (sleepMs != 0) {
                        SleepMs(sleepMs);
                    }
                }
            }
            if (code == vcpC_DisplayScaling) {
                // Some scalers drop the acknowledgement of a scaling change; it is counted as
                // done.
                option_I->ClearError();
            }
        }
    }
    if (gTraceEnabled && option_I->HasError()) {
        Trace("WriteVCPValue %s failed %s\n", name.c_str(), option_I->GetError().c_str());
    }
}
