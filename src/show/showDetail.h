// showDetail.h - how much of a record is shown.
#pragma once

namespace show {

/// How much of a record is shown.
enum class Detail
{
    Everything,
    ForPeople, ///< without what is shown in another form: lists of startup commands, data types and objects
};

} // namespace show
