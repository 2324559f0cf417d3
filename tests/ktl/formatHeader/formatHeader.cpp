// formatHeader.cpp - the same reader as C++.
#include "formatHeader.c"
