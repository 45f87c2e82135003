#include "reporttext.h"

#include <math.h>
#include <stdint.h>
#include <string.h>

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// Windows-1252's 0x80-0x9F; 0 where the code page has no character.
const uint16_t kHighControls[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

void AppendUtf8(std::string* out, unsigned code)
{
    if (code < 0x80) {
        out->push_back((char)code);
    } else if (code < 0x800) {
        out->push_back((char)(0xC0 | (code >> 6)));
        out->push_back((char)(0x80 | (code & 0x3F)));
    } else {
        out->push_back((char)(0xE0 | (code >> 12)));
        out->push_back((char)(0x80 | ((code >> 6) & 0x3F)));
        out->push_back((char)(0x80 | (code & 0x3F)));
    }
}

bool IsPlainMarkup(unsigned char c)
{
    return c >= 0x20 && c < 0x7F && c != '&' && c != '<' && c != '>' && c != '"' && c != '\'';
}

}  // namespace

void AppendMarkup(std::string* out, const std::string& text)
{
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end) {
        // Most of a design's text is printable ASCII that needs no escape:
        // it goes over a run at a time.
        const char* const run = p;
        while (p < end && IsPlainMarkup((unsigned char)*p))
            p++;
        out->append(run, (size_t)(p - run));
        if (p == end)
            break;
        const unsigned char c = (unsigned char)*p++;
        switch (c) {
        case '&': *out += "&amp;"; break;
        case '<': *out += "&lt;"; break;
        case '>': *out += "&gt;"; break;
        case '"': *out += "&quot;"; break;
        case '\'': *out += "&#39;"; break;
        default:
            if (c < 0x20 || c == 0x7F) {
                if (c == '\t')
                    out->push_back(' ');
            } else if (c >= 0x80 && c < 0xA0) {
                if (kHighControls[c - 0x80])
                    AppendUtf8(out, kHighControls[c - 0x80]);
            } else {
                AppendUtf8(out, c);
            }
        }
    }
}

void MARKUPPIECE::Put(const char* text, size_t length)
{
    if (length > sizeof m_text - m_length) {
        Flush();
        if (length > sizeof m_text) {
            m_out->append(text, length);
            return;
        }
    }
    memcpy(m_text + m_length, text, length);
    m_length += length;
}

void MARKUPPIECE::Markup(const std::string& text)
{
    // A short text that needs no escape joins the piece as it is.
    if (text.size() <= sizeof m_text - m_length) {
        size_t plain = 0;
        while (plain < text.size() && IsPlainMarkup((unsigned char)text[plain]))
            plain++;
        if (plain == text.size()) {
            memcpy(m_text + m_length, text.data(), text.size());
            m_length += text.size();
            return;
        }
    }
    Flush();
    AppendMarkup(m_out, text);
}

std::string EscapeMarkup(const std::string& text)
{
    std::string out;
    out.reserve(text.size());
    AppendMarkup(&out, text);
    return out;
}

void AppendCsvField(std::string* out, const std::string& text)
{
    bool quoted = false;
    for (char c : text) {
        if (c == ',' || c == '"' || c == '\r' || c == '\n') {
            quoted = true;
            break;
        }
    }
    if (!quoted) {
        *out += text;
        return;
    }
    out->push_back('"');
    for (char c : text) {
        if (c == '"')
            out->push_back('"');
        out->push_back(c);
    }
    out->push_back('"');
}

std::string CsvField(const std::string& text)
{
    std::string out;
    AppendCsvField(&out, text);
    return out;
}

void AppendInteger(std::string* out, long long value)
{
    char digits[24];
    char* const end = digits + sizeof digits;
    char* p = end;
    unsigned long long magnitude = value < 0 ? 0ULL - (unsigned long long)value : (unsigned long long)value;
    do {
        *--p = (char)('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude);
    if (value < 0)
        *--p = '-';
    out->append(p, (size_t)(end - p));
}

size_t FormatNumber(char* text, double value)
{
    // Hundredths, rounded half away from zero; written without printf, as
    // the pictures hold millions of numbers.
    if (!isfinite(value) || fabs(value) >= 1e15) {
        text[0] = '0';
        return 1;
    }
    const double scaled = value * 100.0;
    // Most numbers are whole pixels, already whole hundredths.
    const long long hundredths = scaled == (double)(long long)scaled ? (long long)scaled : llround(scaled);
    const unsigned long long magnitude = hundredths < 0 ? 0ULL - (unsigned long long)hundredths
                                                        : (unsigned long long)hundredths;
    size_t length = 0;
    if (hundredths < 0)
        text[length++] = '-';  // never "-0": a negative number has some hundredths
    // The whole part left to right, its digits counted first.
    unsigned long long whole = magnitude / 100;
    size_t digits = 1;
    for (unsigned long long rest = whole; rest >= 10; rest /= 10)
        digits++;
    for (size_t i = digits; i-- > 0;) {
        text[length + i] = (char)('0' + whole % 10);
        whole /= 10;
    }
    length += digits;
    const unsigned fraction = (unsigned)(magnitude % 100);
    if (fraction) {
        text[length++] = '.';
        text[length++] = (char)('0' + fraction / 10);
        if (fraction % 10)
            text[length++] = (char)('0' + fraction % 10);
    }
    return length;
}

void AppendNumber(std::string* out, double value)
{
    char text[NUMBER_TEXT_SIZE];
    out->append(text, FormatNumber(text, value));
}

std::string Number(double value)
{
    std::string number;
    AppendNumber(&number, value);
    return number;
}

void TEXTSINK::Flush()
{
    if (!m_file || m_buffer.empty())
        return;
    if (fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) != m_buffer.size())
        m_failed = true;
    m_buffer.clear();
}
