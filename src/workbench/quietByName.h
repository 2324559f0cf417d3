// quietByName.h - the toolkit connects slots by name without telling of those that are not meant for it.
#pragma once

/// While it lives, the toolkit's warnings that a slot named on_<object>_<signal> has no such signal are left out. Slots
/// of context menus have names of that form; they are connected when their menu is built. The slots that are meant to
/// be connected by name are held by tst_MainWindowSlots.
class QuietByName
{
public:
    QuietByName();
    ~QuietByName();
    QuietByName(const QuietByName&) = delete;
    QuietByName& operator=(const QuietByName&) = delete;
    QuietByName(QuietByName&&) = delete;
    QuietByName& operator=(QuietByName&&) = delete;
};
