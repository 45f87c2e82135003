// Include last in every source file: poisons the C library's unbounded string
// writers so that a fixed buffer can only be filled through base/text.h.
#pragma once

#if defined(__GNUC__)
// wsprintf, lstrcpy and lstrcat are macros for their A and W forms: poisoning
// the A forms covers them.
#pragma GCC poison sprintf vsprintf strcpy strcat wsprintfA wvsprintfA
#pragma GCC poison lstrcpyA lstrcatA gets
#endif
