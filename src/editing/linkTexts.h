// linkTexts.h - the words for the links of PDO entries to inputs and outputs of the controller.
#pragma once

#include <QString>

#include <cstdint>
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
