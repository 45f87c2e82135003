// The texts of the outputs: design texts escaped for HTML and SVG, CSV
// fields, and the sink the outputs are written through. Platform-free.
#pragma once

#include <stdio.h>
#include <string.h>

#include <string>

// A design text (8-bit, Windows-1252) as UTF-8 with &, <, >, " and '
// escaped and control characters dropped: safe in HTML and XML text and
// attribute values alike.
std::string EscapeMarkup(const std::string& text);
void AppendMarkup(std::string* out, const std::string& text);

// One RFC 4180 field: quoted when it holds a comma, quote, CR or LF, its
// quotes doubled. The bytes stay the design's own.
std::string CsvField(const std::string& text);
void AppendCsvField(std::string* out, const std::string& text);

// "12.35": millimetres and pixels in SVG, two decimals, no trailing zeros.
std::string Number(double value);
void AppendNumber(std::string* out, double value);
// The same into a buffer of NUMBER_TEXT_SIZE bytes, unterminated; answers its length.
enum { NUMBER_TEXT_SIZE = 32 };
size_t FormatNumber(char* text, double value);
// ` NAME="NUMBER"` of markup, put together before it is appended.
template <size_t N>
void AppendAttribute(std::string* out, const char (&name)[N], double value)
{
    static_assert(N <= 16, "an attribute's name is short");
    char text[NUMBER_TEXT_SIZE + 20];
    size_t length = 0;
    text[length++] = ' ';
    memcpy(text + length, name, N - 1);
    length += N - 1;
    text[length++] = '=';
    text[length++] = '"';
    length += FormatNumber(text + length, value);
    text[length++] = '"';
    out->append(text, length);
}
// A whole number in decimal, as std::to_string writes it.
void AppendInteger(std::string* out, long long value);

// Short markup put together on the stack and appended to a text at once:
// the pictures' elements are mostly names and numbers, and appending a whole
// element costs less than appending each of its pieces.
class MARKUPPIECE {
public:
    explicit MARKUPPIECE(std::string* out) : m_out(out) {}
    ~MARKUPPIECE() { Flush(); }
    MARKUPPIECE(const MARKUPPIECE&) = delete;
    MARKUPPIECE& operator=(const MARKUPPIECE&) = delete;

    template <size_t N>
    void Put(const char (&text)[N])
    {
        Put(text, N - 1);
    }
    void Put(const char* text, size_t length);
    // ` NAME="NUMBER"`
    template <size_t N>
    void Attribute(const char (&name)[N], double value)
    {
        static_assert(N <= 16, "an attribute's name is short");
        if (sizeof m_text - m_length < N + NUMBER_TEXT_SIZE + 4)
            Flush();
        m_text[m_length++] = ' ';
        memcpy(m_text + m_length, name, N - 1);
        m_length += N - 1;
        m_text[m_length++] = '=';
        m_text[m_length++] = '"';
        m_length += FormatNumber(m_text + m_length, value);
        m_text[m_length++] = '"';
    }
    // A design text escaped as AppendMarkup escapes it.
    void Markup(const std::string& text);
    void Flush()
    {
        m_out->append(m_text, m_length);
        m_length = 0;
    }

private:
    std::string* m_out;
    char m_text[256];
    size_t m_length = 0;
};

// Writes through a buffer to a file, or keeps everything when it has none.
class TEXTSINK {
public:
    explicit TEXTSINK(FILE* file = nullptr) : m_file(file) {}
    ~TEXTSINK() { Flush(); }
    TEXTSINK(const TEXTSINK&) = delete;
    TEXTSINK& operator=(const TEXTSINK&) = delete;

    std::string& Buffer() { return m_buffer; }
    // Hands the buffer to the file once it is large; call between parts.
    void Spill()
    {
        if (m_file && m_buffer.size() >= (1u << 16))
            Flush();
    }
    void Flush();
    bool Failed() const { return m_failed; }
    const std::string& Text() const { return m_buffer; }

private:
    FILE* m_file;
    std::string m_buffer;
    bool m_failed = false;
};
