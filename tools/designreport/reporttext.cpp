#include "reporttext.h"

#include <math.h>
#include <stdint.h>

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

}  // namespace

void AppendMarkup(std::string* out, const std::string& text)
{
    for (unsigned char c : text) {
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

std::string EscapeMarkup(const std::string& text)
{
    std::string out;
    out.reserve(text.size());
    AppendMarkup(&out, text);
    return out;
}

std::string CsvField(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"')
            out += '"';
        out += c;
    }
    return out + "\"";
}

std::string Number(double value)
{
    // Hundredths, rounded half away from zero; written without printf, as
    // the pictures hold millions of numbers.
    if (!isfinite(value) || fabs(value) >= 1e15)
        return "0";
    long long hundredths = llround(value * 100.0);
    std::string number;
    if (hundredths < 0) {
        number += '-';
        hundredths = -hundredths;
    }
    number += std::to_string(hundredths / 100);
    const int fraction = (int)(hundredths % 100);
    if (fraction) {
        number += '.';
        number += (char)('0' + fraction / 10);
        if (fraction % 10)
            number += (char)('0' + fraction % 10);
    }
    return number == "-0" ? "0" : number;
}

void TEXTSINK::Flush()
{
    if (!m_file || m_buffer.empty())
        return;
    if (fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) != m_buffer.size())
        m_failed = true;
    m_buffer.clear();
}
