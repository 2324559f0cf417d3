// terminationReason.h - why a program ends on an error.
#pragma once

#include <QString>

/// One line on the error that ends the program: the reason of the exception in flight, if there is one, and the file
/// that was being read, if there was one. For use in a terminate handler.
[[nodiscard]] QString terminationReason();
