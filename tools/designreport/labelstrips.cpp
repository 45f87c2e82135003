#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <map>

#include "consolefacts.h"
#include "labelfit.h"
#include "reports.h"
#include "../../plugin/console/keygeometry.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

// An ordinary key's label box in the view; the label size scales from it.
const double kBoxWidthPixels = 54.0;
const double kBoxHeightPixels = 14.0;
const double kPageMargin = 10.0;  // millimetres
const double kCaptionHeight = 7.0;
const double kBlockGap = 8.0;
const double kCutMark = 1.5;       // length of a cut mark
const double kCutGap = 0.5;        // between a corner and its marks
const double kSmallestFont = 1.2;  // millimetres, about 3.4 points

struct BLOCK {
    std::string caption;
    const std::vector<CONSOLEKEYLABEL>* boxes;  // kept by BOXES
    const CONSOLEDESIGN* console;
};

// The label boxes of a type's face (slot -1) or of its extension in a slot,
// drawn at the first position; made once for each.
class BOXES {
public:
    const std::vector<CONSOLEKEYLABEL>* Of(int type, int slot)
    {
        auto found = m_boxes.find(std::make_pair(type, slot));
        if (found != m_boxes.end())
            return &found->second;
        std::vector<CONSOLEKEYLABEL>& boxes = m_boxes[std::make_pair(type, slot)];
        boxes = slot < 0 ? ConsoleKeyLabels(type) : ExtensionKeyLabels(type, slot, 0);
        return &boxes;
    }

private:
    std::map<std::pair<int, int>, std::vector<CONSOLEKEYLABEL>> m_boxes;
};

struct PLACEMENT {
    double scaleX, scaleY;  // millimetres per pixel
    double x, y;            // where the block's top-left box corner goes
    float left, top;        // the block's top-left in pixels
};

void Line(std::string* out, double x1, double y1, double x2, double y2)
{
    *out += "<line";
    AppendAttribute(out, "x1", x1);
    AppendAttribute(out, "y1", y1);
    AppendAttribute(out, "x2", x2);
    AppendAttribute(out, "y2", y2);
    *out += "/>";
}

// Marks outside each corner, along both edges, so cutting follows them.
void CutMarks(std::string* out, double x, double y, double width, double height)
{
    const double right = x + width, bottom = y + height;
    *out += "<g class=\"cut\">";
    Line(out, x - kCutGap - kCutMark, y, x - kCutGap, y);
    Line(out, x, y - kCutGap - kCutMark, x, y - kCutGap);
    Line(out, right + kCutGap, y, right + kCutGap + kCutMark, y);
    Line(out, right, y - kCutGap - kCutMark, right, y - kCutGap);
    Line(out, x - kCutGap - kCutMark, bottom, x - kCutGap, bottom);
    Line(out, x, bottom + kCutGap, x, bottom + kCutGap + kCutMark);
    Line(out, right + kCutGap, bottom, right + kCutGap + kCutMark, bottom);
    Line(out, right, bottom + kCutGap, right, bottom + kCutGap + kCutMark);
    *out += "</g>\n";
}

// A label window with its cut marks, drawn once per size and placed by reference.
std::string WindowId(const CONSOLEKEYLABEL& box)
{
    return "window-" + Number(box.width) + "x" + Number(box.height);
}

// The ids of the few window sizes a page uses, each made once; `defined`
// says the page's definitions hold it.
class WINDOWIDS {
public:
    struct ENTRY {
        float width, height;
        std::string id;
        bool defined;
    };
    ENTRY& Of(const CONSOLEKEYLABEL& box)
    {
        for (ENTRY& entry : m_entries)
            if (memcmp(&entry.width, &box.width, sizeof box.width) == 0 &&
                memcmp(&entry.height, &box.height, sizeof box.height) == 0)
                return entry;
        m_entries.push_back(ENTRY{box.width, box.height, WindowId(box), false});
        return m_entries.back();
    }

private:
    std::vector<ENTRY> m_entries;
};

void WindowDefinition(std::string* out, const std::string& id, double width, double height)
{
    *out += "<g id=\"" + id + "\"><rect class=\"window\" width=\"" + Number(width) + "\" height=\"" +
            Number(height) + "\"/>";
    CutMarks(out, 0, 0, width, height);
    *out += "</g>\n";
}

void Label(std::string* out, const PLACEMENT& place, const CONSOLEKEYLABEL& box, const std::string& windowId,
           const std::string& text)
{
    const double x = place.x + (box.x - place.left) * place.scaleX;
    const double y = place.y + (box.y - place.top) * place.scaleY;
    const double width = box.width * place.scaleX, height = box.height * place.scaleY;
    MARKUPPIECE piece(out);
    piece.Put("<use xlink:href=\"#");
    piece.Put(windowId.data(), windowId.size());
    piece.Put("\"");
    piece.Attribute("x", x);
    piece.Attribute("y", y);
    piece.Put("/>");
    if (text.empty()) {
        piece.Put("\n");
        return;
    }
    const double room = width - 1.0;
    const TEXTFIT fit = FitTextSize(text, room, height * 0.7, std::min(kSmallestFont, height * 0.7));
    piece.Put("<text");
    piece.Attribute("x", x + width / 2);
    piece.Attribute("y", y + height / 2 + fit.fontSize * 0.35);
    piece.Attribute("font-size", fit.fontSize);
    piece.Put(">");
    PutFittedMarkup(&piece, text, fit);
    piece.Put("</text>\n");
}

void Extent(const std::vector<CONSOLEKEYLABEL>& boxes, float* left, float* top, float* right, float* bottom)
{
    *left = *top = 1e9f;
    *right = *bottom = -1e9f;
    for (const CONSOLEKEYLABEL& box : boxes) {
        *left = std::min(*left, box.x);
        *top = std::min(*top, box.y);
        *right = std::max(*right, box.x + box.width);
        *bottom = std::max(*bottom, box.y + box.height);
    }
}

std::vector<BLOCK> Blocks(const DESIGNMODEL& model, BOXES* boxes)
{
    std::vector<BLOCK> blocks;
    for (const CONSOLEGROUP& group : GroupConsoles(model)) {
        for (const CONSOLEDESIGN* console : group.consoles) {
            const std::string shown = FactsOf(model, *console).displayName;
            const std::string name = shown == console->name ? shown : shown + " (" + console->name + ")";
            blocks.push_back(BLOCK{name + " - console", boxes->Of(console->model, -1), console});
            for (int slot = 0; slot < console->extensions; slot++)
                blocks.push_back(BLOCK{name + FormatString(" - extension %d", slot + 1),
                                       boxes->Of(console->model, slot), console});
        }
    }
    return blocks;
}

}  // namespace

bool ParseLabelSize(const char* text, LABELSIZE* size)
{
    if (!text)
        return false;
    char* end = nullptr;
    const double width = strtod(text, &end);
    if (end == text || (*end != 'x' && *end != 'X'))
        return false;
    const char* second = end + 1;
    const double height = strtod(second, &end);
    if (end == second || *end != '\0')
        return false;
    if (!(width >= 1 && width <= 200 && height >= 1 && height <= 200))
        return false;
    size->width = width;
    size->height = height;
    return true;
}

void WriteLabelStrips(const DESIGNMODEL& model, const LABELSIZE& size, TEXTSINK* out)
{
    const double scaleX = size.width / kBoxWidthPixels, scaleY = size.height / kBoxHeightPixels;
    BOXES boxes;
    const std::vector<BLOCK> blocks = Blocks(model, &boxes);
    // The page is as wide as the widest block and as long as all of them.
    double pageWidth = 2 * kPageMargin + 60, pageHeight = 2 * kPageMargin;
    for (const BLOCK& block : blocks) {
        float left, top, right, bottom;
        Extent(*block.boxes, &left, &top, &right, &bottom);
        pageWidth = std::max(pageWidth, 2 * kPageMargin + (right - left) * scaleX);
        pageHeight += kCaptionHeight + (bottom - top) * scaleY + kBlockGap;
    }
    std::string& head = out->Buffer();
    head += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
            "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" +
            Number(pageWidth) + "mm\" height=\"" + Number(pageHeight) + "mm\" viewBox=\"0 0 " + Number(pageWidth) +
            " " + Number(pageHeight) + "\" font-family=\"Arial, Helvetica, sans-serif\">\n<title>Label strips: ";
    AppendMarkup(&head, model.fileName);
    head += FormatString("</title>\n<desc>Label windows of %s x %s mm; print at 100 %%.</desc>\n",
                         Number(size.width).c_str(), Number(size.height).c_str());
    head += "<style>.cut{stroke:#000;stroke-width:0.1}.window{fill:none;stroke:#bbb;stroke-width:0.05}"
            "text{text-anchor:middle;fill:#000}.caption{text-anchor:start;font-size:3px;fill:#444}</style>\n";
    // Every window size the blocks use: the keypad's and the wide key's.
    WINDOWIDS windowIds;
    std::map<std::string, bool> defined;
    head += "<defs>\n";
    for (const BLOCK& block : blocks) {
        for (const CONSOLEKEYLABEL& box : *block.boxes) {
            WINDOWIDS::ENTRY& window = windowIds.Of(box);
            if (window.defined)
                continue;
            window.defined = true;
            if (defined.emplace(window.id, true).second)
                WindowDefinition(&head, window.id, box.width * scaleX, box.height * scaleY);
        }
    }
    head += "</defs>\n";
    const std::string noLabel;
    double y = kPageMargin;
    for (const BLOCK& block : blocks) {
        std::string& text = out->Buffer();
        float left, top, right, bottom;
        Extent(*block.boxes, &left, &top, &right, &bottom);
        text += "<text class=\"caption\"";
        AppendAttribute(&text, "x", kPageMargin);
        AppendAttribute(&text, "y", y + 3.5);
        text += ">";
        AppendMarkup(&text, block.caption);
        text += "</text>\n";
        const PLACEMENT place = {scaleX, scaleY, kPageMargin, y + kCaptionHeight, left, top};
        for (const CONSOLEKEYLABEL& box : *block.boxes) {
            const KEYLINE* label = block.console->Label(box.key);
            Label(&text, place, box, windowIds.Of(box).id, label ? label->record.text : noLabel);
        }
        y += kCaptionHeight + (bottom - top) * scaleY + kBlockGap;
        out->Spill();
    }
    out->Buffer() += "</svg>\n";
}
