// factNames.h - the names of facts, as rules use them.
#pragma once

#include "facts/dictionary/dictionaryFacts.h"
#include "facts/ktlFacts.h"
#include "facts/owner.h"
#include "facts/processData.h"
#include "facts/slotFacts.h"
#include "facts/unitFacts.h"

namespace check {

using facts::Access;
using facts::canBeSame;
using facts::classesOf;
using facts::CommandFacts;
using facts::CountedPdos;
using facts::DataKind;
using facts::DataType;
using facts::DictionaryContent;
using facts::DictionaryFacts;
using facts::DictionaryObject;
using facts::elementTypeName;
using facts::EntryFacts;
using facts::FmmuFacts;
using facts::InfoSubItem;
using facts::ItemFacts;
using facts::ItemInfo;
using facts::ItemsOf;
using facts::KtlFacts;
using facts::LookedUpItem;
using facts::LookUp;
using facts::LostSamples;
using facts::Mapping;
using facts::ModeFacts;
using facts::ModePdoFacts;
using facts::ModuleLookUp;
using facts::ModuleRoom;
using facts::ModuleRooms;
using facts::Owner;
using facts::OwnerKind;
using facts::PdoFacts;
using facts::SlotFacts;
using facts::slotsOf;
using facts::standardTypeNamed;
using facts::StartupFault;
using facts::StartupSlip;
using facts::SubIndexSpan;
using facts::SyncManagerFacts;
using facts::TypeName;
using facts::TypeShape;
using facts::TypeSubItem;
using facts::UnitFacts;
using facts::UnreadCommands;
using facts::ValueForm;
using facts::Where;
using facts::WrittenValue;

} // namespace check
