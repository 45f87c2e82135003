#include "labelfit.h"

#include "reporttext.h"

#include "../../base/banned.h"

namespace {

// Advances of the printable ASCII characters, space to tilde, in thousandths
// of the font size (Helvetica, which Arial and Liberation Sans match).
const short kAdvances[95] = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,  // space to /
    556, 556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,  // 0 to ?
    1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778, // @ to O
    667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,  // P to _
    333, 556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,  // ` to o
    556, 556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584,       // p to ~
};
// Letters beyond ASCII: as wide as the widest common capitals, so no estimate falls short.
const short kOtherAdvance = 778;

}  // namespace

const char kCutMark[] = "\x85";

namespace {

int Advance(unsigned char c)
{
    return c >= 32 && c < 127 ? kAdvances[c - 32] : c == 0x85 ? 1000 : kOtherAdvance;
}

}  // namespace

double TextWidth(const std::string& text, double fontSize)
{
    long total = 0;
    for (unsigned char c : text)
        total += Advance(c);
    return total * fontSize / 1000.0;
}

TEXTFIT FitTextSize(const std::string& text, double width, double largest, double smallest)
{
    TEXTFIT fit;
    fit.fontSize = largest;
    fit.keep = text.size();
    if (text.empty() || width <= 0)
        return fit;
    long total = 0;
    for (unsigned char c : text)
        total += Advance(c);
    const double natural = total * largest / 1000.0;
    if (natural > width) {
        const double size = largest * width / natural;
        fit.fontSize = size < smallest ? smallest : size;
    }
    // A shrunk text is as wide as the box, give or take the last bit.
    const double room = width * (1 + 1e-9);
    if (total * fit.fontSize / 1000.0 > room) {
        // Keep what fits beside the mark, a character less at a time.
        size_t keep = text.size();
        long kept = total + Advance(0x85);
        while (keep > 0 && kept * fit.fontSize / 1000.0 > room) {
            keep--;
            kept -= Advance((unsigned char)text[keep]);
        }
        fit.keep = keep;
        fit.cut = true;
    }
    return fit;
}

FITTEDTEXT FitText(const std::string& text, double width, double largest, double smallest)
{
    const TEXTFIT fit = FitTextSize(text, width, largest, smallest);
    FITTEDTEXT fitted;
    fitted.fontSize = fit.fontSize;
    fitted.cut = fit.cut;
    fitted.text = fit.cut ? text.substr(0, fit.keep) + kCutMark : text;
    return fitted;
}

void PutFittedMarkup(MARKUPPIECE* piece, const std::string& text, const TEXTFIT& fit)
{
    if (!fit.cut) {
        piece->Markup(text);
        return;
    }
    piece->Markup(text.substr(0, fit.keep) + kCutMark);
}
