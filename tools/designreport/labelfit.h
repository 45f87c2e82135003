// Fitting a label's text into its box: the font shrinks down to a smallest
// size, and a text that still does not fit is cut with a visible mark.
// Platform-free; lengths in the drawing's own units.
#pragma once

#include <stddef.h>

#include <string>

struct FITTEDTEXT {
    std::string text;  // the design's text, or its cut start followed by the mark
    double fontSize = 0;
    bool cut = false;
};

// The mark that ends a cut text (a horizontal ellipsis, Windows-1252 0x85).
extern const char kCutMark[];

// The width of a Windows-1252 text in Arial (Helvetica's advances) at a size.
double TextWidth(const std::string& text, double fontSize);

FITTEDTEXT FitText(const std::string& text, double width, double largest, double smallest);

// What FitText answers without a copy of the text: the size, and how many of
// the text's characters stand before the mark when it is cut.
struct TEXTFIT {
    double fontSize = 0;
    size_t keep = 0;  // the whole text when it is not cut
    bool cut = false;
};
TEXTFIT FitTextSize(const std::string& text, double width, double largest, double smallest);
// The text as FitText leaves it, escaped for markup (see AppendMarkup).
class MARKUPPIECE;
void PutFittedMarkup(MARKUPPIECE* piece, const std::string& text, const TEXTFIT& fit);
