// sections.h - the parts of devices and modules that are compared, each by a function of its own.
#pragma once

#include "diff/comparison.h"
#include "diff/subject.h"
#include "facts/unitFacts.h"

#include <string>
#include <vector>

namespace diff {

/// Identity, type, name, class, and what the mailboxes can do.
void compareIdentity(const Subject& before, const Subject& after, Comparison& out);

/// Sync managers and FMMUs, by their numbers.
void compareChannels(const Subject& before, const Subject& after, Comparison& out);

/// Operation modes of the distributed clocks: by name, in KTL files by place; and which is the chosen one.
void compareClocks(const Subject& before, const Subject& after, Comparison& out);

/// PDOs by direction and index, and their entries by object.
/// @param area   `Area::Pdo`, or `Area::Module` for those of a module
/// @param owner  words before those for the PDO: "module 0x10 \"DI8\", "; empty for a device
void comparePdos(const facts::UnitFacts& before, const facts::UnitFacts& after, Area area, const std::string& owner,
                 Comparison& out);

/// The place of each signal in the process image.
void compareImages(const Subject& before, const Subject& after, Comparison& out);

/// Startup commands as a sequence.
/// @param area   see `comparePdos`
/// @param owner  see `comparePdos`
void compareStartup(const std::vector<facts::CommandFacts>& before, const std::vector<facts::CommandFacts>& after,
                    Area area, const std::string& owner, Comparison& out);

/// The startup commands of a device: those of CoE and of EoE.
void compareStartup(const Subject& before, const Subject& after, Comparison& out);

/// Slots by their numbers, and the modules that are in them.
void compareSlots(const Subject& before, const Subject& after, Comparison& out);

/// Modules by their idents.
void compareModules(const std::vector<const facts::UnitFacts*>& before,
                    const std::vector<const facts::UnitFacts*>& after, Comparison& out);

/// The names of modules that KTL files have beside their devices, by their places.
void compareModuleNames(const Subject& before, const Subject& after, Comparison& out);

/// The CoE dictionaries of devices or modules that have one: data types by name, objects by index.
/// @param owner  see `comparePdos`
void compareDictionaries(const facts::UnitFacts& before, const facts::UnitFacts& after, const std::string& owner,
                         Comparison& out);

} // namespace diff
