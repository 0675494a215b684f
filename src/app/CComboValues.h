#pragma once
// A combo box that shows localised text and stands for a value: row i carries mValues[i].
// Removing a row does not renumber the rows after it in mIndexOf; the one removal the dialog
// makes takes the last row added, where that does no harm.

#include "foundation/Trace.h"

#include <QComboBox>
#include <QString>

#include <cstddef>
#include <map>
#include <vector>

template <typename T>
class CComboValues {
public:
    void Bind(QComboBox* combo_I) { mCombo = combo_I; }
    QComboBox* Combo() const { return mCombo; }

    void Add(T value_I, const QString& text_I) {
        mIndexOf[value_I] = static_cast<int>(mValues.size());
        mValues.push_back(value_I);
        mCombo->addItem(text_I);
    }

    T ValueAt(int index_I) const {
        const size_t idx = static_cast<size_t>(index_I);
        VRX_ASSERT(idx < mValues.size());
        return idx < mValues.size() ? mValues[idx] : T{};
    }

    T Selected() const { return ValueAt(mCombo->currentIndex()); }

    // A value without a row leaves the selection as it is.
    void Select(T value_I) {
        const auto found = mIndexOf.find(value_I);
        if (found != mIndexOf.end()) {
            mCombo->setCurrentIndex(found->second);
        }
    }

    bool Has(T value_I) const { return mIndexOf.count(value_I) != 0; }

    void Remove(T value_I) {
        const auto found = mIndexOf.find(value_I);
        if (found == mIndexOf.end()) {
            return;
        }
        const int row = found->second;
        mCombo->removeItem(row);
        mValues.erase(mValues.begin() + row);
        mIndexOf.erase(found);
    }

    void Clear() {
        while (mCombo->count() > 0) {
            mCombo->removeItem(0);
        }
        mValues.clear();
        mIndexOf.clear();
    }

    bool Empty() const { return mValues.empty(); }
    size_t Size() const { return mValues.size(); }

private:
    QComboBox* mCombo = nullptr;
    std::vector<T> mValues;
    std::map<T, int> mIndexOf;
};
