#pragma once
// The program's memory of one VCP feature of one display: what the display said last, what to
// go back to, and what went wrong last. Options keep values and judge them; they know no wire.

#include "ddc/VcpCodes.h"
#include "model/SVCPCodeInfo.h"

#include <cstdint>
#include <string>

struct SVCPRange {
    int32_t minimum = 0;
    int32_t maximum = 0;
    bool operator==(const SVCPRange&) const = default;
};

class VCPOptionBase {
public:
    VCPOptionBase(vcpCode code_I, const SVCPCodeInfo& info_I);
    virtual ~VCPOptionBase() = default;
    VCPOptionBase(const VCPOptionBase&) = delete;
    VCPOptionBase& operator=(const VCPOptionBase&) = delete;

    virtual std::string Dump() const;
    virtual bool IsCurrentValue(int32_t value_I) const;
    virtual int32_t GetValue() const;
    virtual int32_t GetOriginal() const;
    virtual bool SetValue(int32_t value_I);
    virtual bool SetOriginal(int32_t value_I);
    virtual bool IsModified() const;
    virtual SVCPRange GetRange() const = 0;
    virtual void SetMaximum(int32_t maximum_I) = 0;

    vcpCode GetCode() const { return mCode; }
    const SVCPCodeInfo& Info() const { return mInfo; }
    bool IsOriginalSet() const { return mOriginalSet; }
    bool HasError() const { return !mError.empty(); }
    const std::string& GetError() const { return mError; }

    void ClearError();
    void SetError(const std::string& text_I);
    // mValue goes back to mOriginal and the error is dropped.
    void Revert();
    // Makes the present value the one to go back to, as a save does.
    void Commit();
    // Forgets what the display said, so that the next use reads again; a write-only code has
    // nothing to read and stays known.
    void Forget();

protected:
    // Raw stored values, for the children's own rules.
    int32_t StoredValue() const { return mValue; }
    int32_t StoredOriginal() const { return mOriginal; }

private:
    vcpCode mCode;
    SVCPCodeInfo mInfo;
    int32_t mValue = 0;
    int32_t mOriginal = 0;
    bool mOriginalSet = false;
    std::string mError;
};
