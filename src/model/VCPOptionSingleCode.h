#pragma once
// A Continuous feature: a level between 0 and the maximum that the display reported.

#include "model/VCPOptionBase.h"

class VCPOptionSingleCode final : public VCPOptionBase {
public:
    VCPOptionSingleCode(vcpCode code_I, const SVCPCodeInfo& info_I);

    std::string Dump() const override;
    bool SetValue(int32_t value_I) override;
    bool SetOriginal(int32_t value_I) override;
    SVCPRange GetRange() const override { return mRange; }
    void SetMaximum(int32_t maximum_I) override;

private:
    bool InRange(int32_t value_I) const;

    SVCPRange mRange;
};
