// selectorForms.h - the forms in which a selector of devices can be written.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace choices {

/// The numbers of `VENDOR:PRODUCT[:REVISION]`; nothing means any number.
struct IdentitySelector
{
    std::optional<std::uint32_t> vendor;
    std::optional<std::uint32_t> product;
    std::optional<std::uint32_t> revision;

    [[nodiscard]] bool fits(std::uint32_t ofVendor, std::uint32_t ofProduct, std::uint32_t ofRevision) const
    {
        return vendor.value_or(ofVendor) == ofVendor && product.value_or(ofProduct) == ofProduct
               && revision.value_or(ofRevision) == ofRevision;
    }
};

/// Identity in a selector: two or three parts, each a number or `*`. Without a revision any is meant.
/// @return  nothing if the selector has another form
[[nodiscard]] std::optional<IdentitySelector> identityIn(const QString& selector);

/// Whether a selector takes all devices that fit it.
[[nodiscard]] bool hasWildcard(const QString& selector);

/// Number of a device in a selector of digits alone; nothing if it has another form, or no device can have the number.
[[nodiscard]] std::optional<std::uint32_t> deviceNumberIn(const QString& selector);

/// Words for what is wrong with the form of a selector that means no device: lists, ranges and identities with
/// something else than numbers. Empty if it can well be a name.
[[nodiscard]] QString formProblem(const QString& selector);

} // namespace choices
