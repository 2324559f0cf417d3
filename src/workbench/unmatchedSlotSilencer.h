// unmatchedSlotSilencer.h - no warnings of slots that are not meant to be connected by name.
#pragma once

/// While it lives, the toolkit does not warn that a slot named on_<object>_<signal> has no such signal. Slots of
/// context menus have names of that form; they are connected when their menu is built. tst_MainWindowSlots checks those
/// that are meant to be connected by name.
class UnmatchedSlotSilencer
{
public:
    UnmatchedSlotSilencer();
    ~UnmatchedSlotSilencer();
    UnmatchedSlotSilencer(const UnmatchedSlotSilencer&) = delete;
    UnmatchedSlotSilencer& operator=(const UnmatchedSlotSilencer&) = delete;
    UnmatchedSlotSilencer(UnmatchedSlotSilencer&&) = delete;
    UnmatchedSlotSilencer& operator=(UnmatchedSlotSilencer&&) = delete;
};
