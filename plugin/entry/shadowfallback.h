// Registering a window class that asks for a drop shadow, on systems that
// refuse CS_DROPSHADOW. Platform-free: the registration is passed in.
#pragma once

enum : unsigned { CLASSSTYLE_DROPSHADOW = 0x00020000 };

// Tries style; returns false and sets *error when the class was refused.
typedef bool (*CLASSREGISTRAR)(unsigned style, void* context, unsigned long* error);

// Registers with style, and when that is refused, without the shadow. The
// refusal is traced (failureFormat takes the error code) only when the
// second attempt succeeded, so the trace tells that the shadow was dropped.
// Returns 1 when the class exists afterwards, else 0.
int RegisterWithShadowFallback(unsigned style, const char* failureFormat, CLASSREGISTRAR registrar, void* context);
