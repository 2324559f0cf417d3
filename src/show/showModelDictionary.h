// showModelDictionary.h - CoE dictionaries of the model: data types, objects, and the rows that they give.
#pragma once

#include "model/deviceRecords.h"
#include "show/showDetail.h"
#include "show/showValue.h"

#include <vector>

namespace show {

/// The CoE dictionary of a device or module.
/// @param dataTypes, objects  have to outlive the result
[[nodiscard]] Object dictionaryMembers(const std::vector<struct_DataTypes>& dataTypes,
                                       const std::vector<struct_Object>& objects, Detail detail);

} // namespace show
