#pragma once
// What a dialog control may do: the answer of every status operation of the display delegate.

struct SControlState {
    bool visible = false;
    bool enabled = false;

    static constexpr SControlState Hidden() { return {false, false}; }
    static constexpr SControlState Disabled() { return {true, false}; }
    static constexpr SControlState Usable() { return {true, true}; }

    bool operator==(const SControlState&) const = default;
};
