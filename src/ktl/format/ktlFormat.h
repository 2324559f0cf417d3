// ktlFormat.h - the KTL file format: codes and packed records.
//
// A KTL file is a plain sequence of items without a file header. Each item begins with its type and its size in bytes;
// a reader that does not know an item skips it by its size.
#pragma once

#include "ktl/format/ktlCodes.h"
#include "ktl/format/ktlDeviceRecords.h"
#include "ktl/format/ktlModuleRecords.h"

#include <QtGlobal>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN,
              "records are written as they lie in memory, and the file is little-endian");
