// ktlReadItems.h - what each item of a KTL file does to the records that a read builds.
#pragma once

#include "ktl/format/itemBytes.h"
#include "model/deviceRecords.h"

/// The records that a read builds.
struct KtlReadTarget
{
    const struct_FilenameDevice* file; ///< modules that are closed already; may be null
    struct_EtherCatDevice& device; ///< the device that was opened last
    struct_commentmodule* modules; ///< the group of the module that was opened last; may be null
};

/// Applies one item. @return  false for an item that is not known, and for one of a module without a group
bool applyItem(const KtlReadTarget& target, const ItemBytes& item);
