#include "sim/CSimFtdiLibrary.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

// Room the vendor's interface gives each string buffer of the list call.
constexpr size_t kListBufferSize = 64;

void CopyListString(const std::string& text_I, char* buffer_O) {
    const size_t length = std::min(text_I.size(), kListBufferSize - 1);
    std::memcpy(buffer_O, text_I.data(), length);
    buffer_O[length] = '\0';
}

} // namespace

void CSimFtdiLibrary::AddChip(CSimFtdiChip& chip_I) {
    mChips.push_back(&chip_I);
}

std::vector<CSimFtdiChip*> CSimFtdiLibrary::PresentChips() const {
    std::vector<CSimFtdiChip*> present;
    std::copy_if(mChips.begin(), mChips.end(), std::back_inserter(present),
                 [](const CSimFtdiChip* chip_I) { return chip_I->IsPresent(); });
    return present;
}

CSimFtdiChip* CSimFtdiLibrary::OpenChip(SimFtHandle handle_I) const {
    for (CSimFtdiChip* chip : mChips) {
        if (chip == handle_I && chip->IsOpen()) {
            return chip;
        }
    }
    return nullptr;
}

SimFtStatus CSimFtdiLibrary::ListDevices(void* arg1_IO, void* arg2_IO, uint32_t flags_I) const {
    const std::vector<CSimFtdiChip*> chips = PresentChips();
    const uint32_t field =
        flags_I & (SimFt::kOpenBySerialNumber | SimFt::kOpenByDescription | SimFt::kOpenByLocation);
    auto fill = [field](const CSimFtdiChip& chip_I, void* out_O) {
        if (field == SimFt::kOpenByLocation) {
            *static_cast<uint32_t*>(out_O) = chip_I.Identity().locationId;
        } else if (field == SimFt::kOpenBySerialNumber) {
            CopyListString(chip_I.Identity().serialNumber, static_cast<char*>(out_O));
        } else {
            CopyListString(chip_I.Identity().description, static_cast<char*>(out_O));
        }
    };
    const bool oneField = field == SimFt::kOpenBySerialNumber ||
                          field == SimFt::kOpenByDescription || field == SimFt::kOpenByLocation;

    if ((flags_I & SimFt::kListNumberOnly) != 0) {
        if (arg1_IO == nullptr) {
            return SimFt::kInvalidParameter;
        }
        *static_cast<uint32_t*>(arg1_IO) = static_cast<uint32_t>(chips.size());
        return SimFt::kOk;
    }
    if ((flags_I & SimFt::kListByIndex) != 0) {
        const auto index = reinterpret_cast<uintptr_t>(arg1_IO);
        if (!oneField || arg2_IO == nullptr) {
            return SimFt::kInvalidParameter;
        }
        if (index >= chips.size()) {
            return SimFt::kDeviceNotFound;
        }
        fill(*chips[index], arg2_IO);
        return SimFt::kOk;
    }
    if ((flags_I & SimFt::kListAll) != 0) {
        if (!oneField || field == SimFt::kOpenByLocation || arg1_IO == nullptr ||
            arg2_IO == nullptr) {
            return SimFt::kInvalidParameter;
        }
        char** buffers = static_cast<char**>(arg1_IO);
        for (size_t index = 0; index < chips.size(); ++index) {
            fill(*chips[index], buffers[index]);
        }
        *static_cast<uint32_t*>(arg2_IO) = static_cast<uint32_t>(chips.size());
        return SimFt::kOk;
    }
    return SimFt::kInvalidParameter;
}

SimFtStatus CSimFtdiLibrary::OpenEx(void* arg_I, uint32_t flags_I, SimFtHandle* handle_O) {
    if (handle_O == nullptr) {
        return SimFt::kInvalidParameter;
    }
    *handle_O = nullptr;
    if (flags_I != SimFt::kOpenByLocation && arg_I == nullptr) {
        return SimFt::kInvalidParameter;
    }
    for (CSimFtdiChip* chip : PresentChips()) {
        bool match = false;
        switch (flags_I) {
        case SimFt::kOpenByLocation:
            match = chip->Identity().locationId == reinterpret_cast<uintptr_t>(arg_I);
            break;
        case SimFt::kOpenBySerialNumber:
            match = chip->Identity().serialNumber == static_cast<const char*>(arg_I);
            break;
        case SimFt::kOpenByDescription:
            match = chip->Identity().description == static_cast<const char*>(arg_I);
            break;
        default:
            return SimFt::kInvalidParameter;
        }
        if (match) {
            if (!chip->Open()) {
                return SimFt::kDeviceNotOpened;
            }
            *handle_O = chip;
            return SimFt::kOk;
        }
    }
    return SimFt::kDeviceNotFound;
}

SimFtStatus CSimFtdiLibrary::Close(SimFtHandle handle_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    if (chip == nullptr) {
        return SimFt::kInvalidHandle;
    }
    chip->Close();
    return SimFt::kOk;
}

SimFtStatus CSimFtdiLibrary::ResetDevice(SimFtHandle handle_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->ResetDevice();
}

SimFtStatus CSimFtdiLibrary::SetUSBParameters(SimFtHandle handle_I, uint32_t inSize_I,
                                              uint32_t outSize_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->SetUsbParameters(inSize_I, outSize_I);
}

SimFtStatus CSimFtdiLibrary::SetChars(SimFtHandle handle_I, uint8_t event_I, uint8_t eventEnable_I,
                                      uint8_t error_I, uint8_t errorEnable_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle
                           : chip->SetChars(event_I, eventEnable_I, error_I, errorEnable_I);
}

SimFtStatus CSimFtdiLibrary::Purge(SimFtHandle handle_I, uint32_t mask_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->Purge(mask_I);
}

SimFtStatus CSimFtdiLibrary::SetTimeouts(SimFtHandle handle_I, uint32_t readMs_I,
                                         uint32_t writeMs_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->SetTimeouts(readMs_I, writeMs_I);
}

SimFtStatus CSimFtdiLibrary::SetLatencyTimer(SimFtHandle handle_I, uint8_t milliseconds_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->SetLatencyTimer(milliseconds_I);
}

SimFtStatus CSimFtdiLibrary::SetBitMode(SimFtHandle handle_I, uint8_t mask_I, uint8_t mode_I) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    return chip == nullptr ? SimFt::kInvalidHandle : chip->SetBitMode(mask_I, mode_I);
}

SimFtStatus CSimFtdiLibrary::GetQueueStatus(SimFtHandle handle_I, uint32_t* count_O) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    if (chip == nullptr) {
        return SimFt::kInvalidHandle;
    }
    if (count_O == nullptr) {
        return SimFt::kInvalidParameter;
    }
    return chip->GetQueueStatus(*count_O);
}

SimFtStatus CSimFtdiLibrary::Read(SimFtHandle handle_I, void* buffer_O, uint32_t count_I,
                                  uint32_t* read_O) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    if (chip == nullptr) {
        return SimFt::kInvalidHandle;
    }
    if (read_O == nullptr || (buffer_O == nullptr && count_I > 0)) {
        return SimFt::kInvalidParameter;
    }
    return chip->Read(static_cast<uint8_t*>(buffer_O), count_I, *read_O);
}

SimFtStatus CSimFtdiLibrary::Write(SimFtHandle handle_I, const void* data_I, uint32_t count_I,
                                   uint32_t* written_O) {
    CSimFtdiChip* chip = OpenChip(handle_I);
    if (chip == nullptr) {
        return SimFt::kInvalidHandle;
    }
    if (written_O == nullptr || (data_I == nullptr && count_I > 0)) {
        return SimFt::kInvalidParameter;
    }
    return chip->Write(static_cast<const uint8_t*>(data_I), count_I, *written_O);
}
