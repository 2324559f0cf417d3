// terminateHandler.h - a program that ends on an error says why.
#pragma once

/// From now on an exception that nothing catches ends the program with its reason and the file being read, on standard
/// error, and in a box when a window is visible.
void installTerminateHandler();
