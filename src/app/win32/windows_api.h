#pragma once

// The system's headers, without the macro that takes the name of one of our functions.
#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>
#undef MessageBox
