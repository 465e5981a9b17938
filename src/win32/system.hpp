// <windows.h> for this folder, the only one that includes it.
//
// The system names some of its functions by macros that would rename the
// add-in's own members of the same name (forms::MessageBox); those macros go,
// and this folder calls the wide functions by their full names.
#pragma once

#include <windows.h>

#undef MessageBox
#undef GetObject
