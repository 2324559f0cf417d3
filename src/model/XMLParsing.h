// XMLParsing.h - the chief header of the model: all records, and the one list of loaded files.
#pragma once

#include "model/byteBit.h"
#include "model/deviceRecords.h"
#include "model/deviceType.h"
#include "model/dictionaryRecords.h"
#include "model/moduleRecords.h"
#include "model/nmtoken.h"
#include "model/pdoRecords.h"
#include "model/slotRecords.h"
#include "model/startupRecords.h"
#include "model/syncDirection.h"
#include "model/syncRecords.h"
#include "model/version.h"

#include <QDomDocument>

#include <vector>

/// All loaded files in the order of loading; the single root of the model. Main thread only.
extern std::vector<struct_FilenameDevice> g_xmlfiledevices;

/// Parse tree of the file being read; keeps the last file parsed. Main thread only.
extern QDomDocument domDocument;
