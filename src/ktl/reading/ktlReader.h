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

/// Reads a KTL file into `g_xmlfiledevices`, one entry per end item. What comes back is a skeleton for display: names
/// become numbers or "TEMP", and EoE, complete-access values and slot assignments are gone. At most 2000 items are
/// read, end items included; what comes after the last end item that was read is dropped.
///
/// No count or size of the file is believed: a record is read as far as the bytes of its item reach and is 0 behind
/// them, an item is read as far as the file reaches, and the memory taken goes by the bytes that are there.
/// @param fileIn       open for binary reading, read from its start; not closed
/// @param xmlfilepath  stored as the path of every entry
/// @param piErrorCode  set to 0, to -1 for a null file, or to -2 at an item head that cannot be; may be null
/// @return             false for -1 and -2. Entries that were closed by an end item before stay
bool device_writektltodevices(std::FILE* fileIn, const QString& xmlfilepath, int* piErrorCode);

/// Applies one item to the records under construction.
/// @param buffer     the whole item, as many bytes as its head says
/// @param xmlfile    searched for modules that are there already; may be null
/// @param commentmodule  may be null for an item that is not of a module
/// @return  false for a null buffer or device, for an unknown item, and for an item of a module without `commentmodule`
bool device_ktlupdatexmldata(struct_FilenameDevice* xmlfile, const char* buffer, struct_EtherCatDevice* device,
                             struct_commentmodule* commentmodule);

/// Reads a General item as it lies in the file. A ready operation that no read calls.
/// @param in  at the first byte of the item, then at the first byte after it
/// @return    `KTL_ERROR_PARA` if an argument is null, else `KTL_NO_ERROR`, also for a file that ends before: fields
/// that it does not reach are left alone
int KTL_read_device_General(std::FILE* in, struct_KTL_EtherCatDeviceType* general);
