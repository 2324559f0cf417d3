// moduleFillings.h - the ways to fill the places of a device with modules, and what an export shows of each.
#pragma once

#include "choices/choices.h"
#include "model/deviceRecords.h"
#include "retrace/exportedPdos.h"
#include "retrace/moduleNames.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace retrace {

/// A PDO that a module brings into its device, whether or not it goes out.
struct BroughtPdo
{
    std::uint16_t index = 0;
    int syncManager = -1; ///< -1 if it is not assigned
    float size = 0; ///< that the length of the sync manager grows by; 0 if it does not count there
};

/// One way to fill a place.
struct Filling
{
    std::vector<choices::ModuleChoice> choices; ///< that lead to it; none if the place stays as it is
    std::vector<DeclaredPdo> outputs; ///< that its modules bring into the device, without names
    std::vector<DeclaredPdo> inputs;
    std::vector<BroughtPdo> brought; ///< outputs first
    std::vector<struct_KTL_InitCmd> commands; ///< that its modules declare
    std::optional<std::uint32_t> ident; ///< of its last module, which a preset shows
    std::size_t count = 0; ///< of its modules
};

/// What default modules bring in that cannot be taken out.
struct FixedShare
{
    std::size_t outputs = 0; ///< PDOs that go out
    std::size_t inputs = 0;
    std::vector<float> lengths; ///< by sync manager
};

/// The ways to fill a place.
struct FillablePlace
{
    int place = 0;
    FixedShare fixedAfter; ///< what comes in after it in any case
    std::vector<Filling> fillings; ///< the first one leaves it as it is; the only one of a default module that stays
};

/// Gives the places of a device, in the order in which their modules bring in what they have. A module whose PDOs name
/// a sync manager that the device lacks is put into none.
/// @param device   its type takes modules by hand
/// @param modules  of its file
/// @return  false if there are more ways than anyone can try, and then without a call
/// @throws MissingSyncManager if the device lacks one that a PDO of it, or of a module in it, names
bool forEachFillablePlace(const struct_EtherCatDevice& device, const std::vector<NamedModule>& modules,
                          const std::function<void(const FillablePlace& place)>& visit);

} // namespace retrace
