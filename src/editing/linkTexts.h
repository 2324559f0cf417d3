// linkTexts.h - the words for the links of PDO entries to inputs and outputs of the controller.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// Direction of process data, seen from the controller.
enum class PdoDirection
{
    Outputs, ///< Rx PDOs of the slave
    Inputs ///< Tx PDOs of the slave
};

/// A link and its words.
struct LinkText
{
    std::int32_t link; ///< a value of `enum_KTL_PDO_TYPE`
    QString text;
};

/// Words of a link; a link without words of its own, such as -3, shows as its number.
[[nodiscard]] QString linkText(std::int32_t link);

/// The links that an entry of that direction can be given, in the order in which they are offered.
[[nodiscard]] std::vector<LinkText> linksFor(PdoDirection direction);

/// Whether an entry of that direction can be given a link.
[[nodiscard]] bool isLinkOffered(std::int32_t link, PdoDirection direction);

/// Name of a link in choices files: "AOUT32", which is its words without their ending; its number if it has none.
[[nodiscard]] QString linkName(std::int32_t link);

/// The link with that name, or with the words that views show for it: "AOUT32 Type"; nothing if there is none.
[[nodiscard]] std::optional<std::int32_t> linkNamed(const QString& name);

/// Names of the links that an entry of that direction can be given.
[[nodiscard]] QStringList linkNames(PdoDirection direction);
