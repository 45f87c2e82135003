// Bounded text helpers: every fixed buffer of the project is written through
// these. They always terminate the buffer and report truncation.
#pragma once

#include <stdarg.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include <string>

#if defined(__MINGW32__)
#define TEXT_PRINTF(f, a) __attribute__((format(gnu_printf, f, a)))
#elif defined(__GNUC__)
#define TEXT_PRINTF(f, a) __attribute__((format(printf, f, a)))
#else
#define TEXT_PRINTF(f, a)
#endif

// Formats into buf (size bytes, size > 0). Returns false when the text did not
// fit; buf then holds the truncated, terminated text.
bool FormatText(char* buf, size_t size, const char* format, ...) TEXT_PRINTF(3, 4);
bool FormatTextV(char* buf, size_t size, const char* format, va_list args);

// Formats into a string of whatever length the text needs.
std::string FormatString(const char* format, ...) TEXT_PRINTF(1, 2);

// Copies src into dst (size bytes, size > 0), truncating. Returns false when
// src did not fit.
bool CopyText(char* dst, size_t size, const char* src);

// Copies at most count characters of src, truncating to the buffer as well.
bool CopyTextN(char* dst, size_t size, const char* src, size_t count);

// Appends src to the text already in dst. Returns false when it did not fit.
bool AppendText(char* dst, size_t size, const char* src);

// Array forms: the buffer's size comes from its type, so it cannot be wrong.
template <size_t N>
inline bool CopyText(char (&dst)[N], const char* src) { return CopyText(dst, N, src); }
template <size_t N>
inline bool AppendText(char (&dst)[N], const char* src) { return AppendText(dst, N, src); }

template <size_t N>
bool Format(char (&buf)[N], const char* format, ...) TEXT_PRINTF(2, 3);
template <size_t N>
inline bool Format(char (&buf)[N], const char* format, ...)
{
    va_list args;
    va_start(args, format);
    bool fitted = FormatTextV(buf, N, format, args);
    va_end(args);
    return fitted;
}

// Parses a decimal integer at the start of text, after blanks, as "%d" does,
// but refuses one that does not fit an int. Text after the number is ignored.
bool ScanLeadingInt(const char* text, int* value);

// Parses a whole decimal integer with optional sign and surrounding blanks.
// Returns false for empty text, trailing garbage or a value outside int.
bool ParseInt(const char* text, int* value);
