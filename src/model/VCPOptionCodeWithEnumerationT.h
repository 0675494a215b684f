#pragma once
// A Non-Continuous feature with the values the display allows; an empty list allows all.
// T only chooses which texts Dump prints for the values.
//
// Some scalers put 0xFFFF into the high half of a non-continuous reply. A stored value with that
// high half is seen through: the getters return its low half sign-extended, and the compares
// look at the low half only. Any other high half is part of the value.

#include "model/VCPOptionBase.h"

#include <string>
#include <vector>

class VCPOptionEnumerationBase : public VCPOptionBase {
public:
    VCPOptionEnumerationBase(vcpCode code_I, const SVCPCodeInfo& info_I,
                             const std::string& optionSet_I);

    bool IsCurrentValue(int32_t value_I) const override;
    int32_t GetValue() const override;
    int32_t GetOriginal() const override;
    bool SetValue(int32_t value_I) override;
    bool SetOriginal(int32_t value_I) override;
    bool IsModified() const override;
    SVCPRange GetRange() const override { return {}; }
    void SetMaximum(int32_t maximum_I) override;

    const std::vector<int32_t>& Values() const { return mValues; }

protected:
    // The value list in Dump's form; valueText_I names one value of the list.
    std::string DumpValues(std::string (*valueText_I)(int32_t)) const;

private:
    bool Allowed(int32_t value_I) const;

    std::vector<int32_t> mValues;
};

template <typename T>
class VCPOptionCodeWithEnumerationT final : public VCPOptionEnumerationBase {
public:
    using VCPOptionEnumerationBase::VCPOptionEnumerationBase;

    std::string Dump() const override {
        return VCPOptionBase::Dump() +
               DumpValues([](int32_t value_I) { return VCPCodeToString(static_cast<T>(value_I)); });
    }
};
