// ktlReader.h - reads a KTL file back into the model.
#pragma once

#include "ktl/format/ktlFormat.h"
#include "model/XMLParsing.h"

#include <QString>

#include <cstdio>

/// Results of the reader.
enum enum_KTL_ERROR_CODE : int
{
    KTL_NO_ERROR = 0,
    KTL_ERROR_PARA = 1000, ///< an argument is null
    KTL_ERROR_PROCESS = 1001 ///< given by nothing
};

// What comes back from a file is a skeleton for display: names become numbers or "TEMP"; EoE, complete-access values
// and slot assignments are gone. No count or size of the file is believed: a record is read as far as the bytes of its
// item reach, then 0, and memory is taken for bytes that are there.

/// Reads a KTL file from its start into `g_xmlfiledevices`, one entry per end item, up to `maxReadItems` items. What
/// follows the last end item is dropped.
/// @param xmlfilepath  of every entry
/// @param piErrorCode  0, -1 for a null file, or -2 at an impossible item head; may be null
/// @return             false for -1 and -2; entries before that stay
bool device_writektltodevices(std::FILE* fileIn, const QString& xmlfilepath, int* piErrorCode);

/// Applies one item to the records under construction.
/// @param buffer         the whole item, as long as its head says
/// @param xmlfile        searched for modules that are there already; may be null
/// @param commentmodule  may be null except for items of modules
/// @return  false for a null buffer or device, an unknown item, and a module's item without `commentmodule`
bool device_ktlupdatexmldata(struct_FilenameDevice* xmlfile, const char* buffer, struct_EtherCatDevice* device,
                             struct_commentmodule* commentmodule);

/// Reads a General item as it is in the file. A ready operation that no read calls.
/// @param in  at the first byte of the item, then at the first byte after it
/// @return    `KTL_ERROR_PARA` if an argument is null, else `KTL_NO_ERROR`, also for a file that ends before: fields
/// that it does not reach are left alone
int KTL_read_device_General(std::FILE* in, struct_KTL_EtherCatDeviceType* general);
