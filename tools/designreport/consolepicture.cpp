#include "consolepicture.h"

#include <string.h>

#include <algorithm>

#include "labelfit.h"
#include "reporttext.h"

#include "../../base/text.h"
#include "../../base/banned.h"

namespace {

struct BOUNDS {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool empty = true;
    void Add(int x, int y, int width, int height)
    {
        if (empty) {
            left = x, top = y, right = x + width, bottom = y + height;
            empty = false;
            return;
        }
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x + width);
        bottom = std::max(bottom, y + height);
    }
};

const char* KeyFill(const KEYROW* row)
{
    if (!row)
        return "#9a9a9a";
    return row->mark == MARK_ALARM ? "#e06666" : row->mark == MARK_EVAC ? "#f0a040" : "#ffffff";
}

void KeySize(const CONSOLEKEY& key, int* width, int* height)
{
    const IMAGESIZE strip = ImageSizeOf(key.image);
    // The special keys' strip holds five frames, every other strip three.
    *width = key.id >= KEY_SPECIAL_FIRST && key.id <= KEY_SPECIAL_LAST ? strip.width / 5 : strip.width / 3;
    *height = strip.height;
}

void Picture(std::string* out, int image, int x, int y, bool board)
{
    const IMAGESIZE size = ImageSizeOf(image);
    MARKUPPIECE piece(out);
    piece.Put("<rect");
    piece.Attribute("x", x);
    piece.Attribute("y", y);
    piece.Attribute("width", size.width);
    piece.Attribute("height", size.height);
    piece.Put(" rx=\"10\" fill=\"");
    const char* const fill = board ? "#339966" : "#c8c8c8";
    piece.Put(fill, strlen(fill));
    piece.Put("\" stroke=\"#666\"/>\n");
}

// What the picture writes on a key: short, as the key's own print.
std::string PictureCaption(int id)
{
    switch (id) {
    case KEY_UP: return "Up";
    case KEY_DOWN: return "Down";
    case KEY_WIDE: return std::string();
    default: return id >= 12 && id < KEYPAD_KEY_COUNT ? std::string() : KeyCaption(id);
    }
}

void Key(std::string* out, const CONSOLEKEY& key, const KEYROW* row, const std::string& caption)
{
    int width = 0, height = 0;
    KeySize(key, &width, &height);
    MARKUPPIECE piece(out);
    piece.Put("<g><title>");
    piece.Markup(KeyCaption(key.id));
    piece.Put(": ");
    if (row) {
        piece.Markup(row->function);
        if (!row->destination.empty()) {
            piece.Put(" - ");
            piece.Markup(row->destination);
        }
    } else {
        piece.Put("not configured");
    }
    piece.Put("</title><rect");
    piece.Attribute("x", key.left);
    piece.Attribute("y", key.top);
    piece.Attribute("width", width);
    piece.Attribute("height", height);
    piece.Put(" rx=\"3\" fill=\"");
    const char* const fill = KeyFill(row);
    piece.Put(fill, strlen(fill));
    piece.Put("\" stroke=\"#444\"/>");
    const TEXTFIT fit = FitTextSize(caption, width - 4, 9, 5);
    piece.Put("<text");
    piece.Attribute("x", key.left + width / 2.0);
    piece.Attribute("y", key.top + height / 2.0 + 3);
    piece.Attribute("font-size", fit.fontSize);
    piece.Put(" text-anchor=\"middle\">");
    PutFittedMarkup(&piece, caption, fit);
    piece.Put("</text></g>\n");
}

void LabelBox(std::string* out, const CONSOLEKEYLABEL& box, const std::string& label)
{
    MARKUPPIECE piece(out);
    piece.Put("<rect");
    piece.Attribute("x", box.x);
    piece.Attribute("y", box.y);
    piece.Attribute("width", box.width);
    piece.Attribute("height", box.height);
    piece.Put(" fill=\"#e5e5e5\"/>");
    if (!label.empty()) {
        const TEXTFIT fit = FitTextSize(label, box.width - 4, 10.5, 5);
        piece.Put("<text");
        piece.Attribute("x", box.x + 2);
        piece.Attribute("y", box.y + box.height / 2 + fit.fontSize / 3);
        piece.Attribute("font-size", fit.fontSize);
        piece.Put(" fill=\"#494949\">");
        PutFittedMarkup(&piece, label, fit);
        piece.Put("</text>");
    }
    piece.Put("\n");
}

}  // namespace

const PICTUREGEOMETRY::TYPEGEOMETRY& PICTUREGEOMETRY::Of(int type)
{
    auto found = m_types.find(type);
    if (found != m_types.end())
        return found->second;
    TYPEGEOMETRY& geometry = m_types[type];
    geometry.keys = ConsoleKeys(type);
    geometry.labels = ConsoleKeyLabels(type);
    for (int slot = 0; slot < EXTENSION_SLOT_COUNT; slot++) {
        geometry.extensionKeys[slot] = ExtensionKeys(type, slot, slot);
        geometry.extensionLabels[slot] = ExtensionKeyLabels(type, slot, slot);
    }
    return geometry;
}

void AppendConsolePicture(const CONSOLEDESIGN& console, const std::vector<KEYROW>& rows, std::string* out)
{
    PICTUREGEOMETRY geometry;
    AppendConsolePicture(console, rows, &geometry, out);
}

void AppendConsolePicture(const CONSOLEDESIGN& console, const std::vector<KEYROW>& rows, PICTUREGEOMETRY* geometry,
                          std::string* out)
{
    const int type = console.model;
    const PICTUREGEOMETRY::TYPEGEOMETRY& shapes = geometry->Of(type);
    const KEYROW* bySlot[REPORT_KEY_SLOTS] = {};
    for (const KEYROW& row : rows)
        if (!row.numeric && row.slot >= 0 && row.slot < REPORT_KEY_SLOTS)
            bySlot[row.slot] = &row;
    auto rowOf = [&bySlot](int slot) -> const KEYROW* {
        return slot >= 0 && slot < REPORT_KEY_SLOTS ? bySlot[slot] : nullptr;
    };
    const std::string noLabel;
    auto labelOf = [&console, &noLabel](int slot) -> const std::string& {
        const KEYLINE* label = console.Label(slot);
        return label ? label->record.text : noLabel;
    };

    const PICTUREFRAME frame = PictureFrameOf(type);
    const std::vector<CONSOLEKEY>& keys = shapes.keys;
    BOUNDS bounds;
    const IMAGESIZE face = ImageSizeOf(frame.picture);
    bounds.Add(frame.leftMargin, frame.pictureTop, face.width, face.height);
    for (const CONSOLEKEY& key : keys) {
        int width = 0, height = 0;
        KeySize(key, &width, &height);
        bounds.Add(key.left, key.top, width, height);
    }
    const IMAGESIZE strip = ImageSizeOf(ExtensionPicture(type));
    for (int position = 0; position < console.extensions; position++) {
        int x = 0, y = 0;
        ExtensionStripOrigin(type, position, &x, &y);
        bounds.Add(x, y, strip.width, strip.height);
    }

    const int margin = 4;
    *out += "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"picture\"";
    AppendAttribute(out, "width", bounds.right - bounds.left + 2 * margin);
    AppendAttribute(out, "height", bounds.bottom - bounds.top + 2 * margin);
    *out += " viewBox=\"";
    AppendNumber(out, bounds.left - margin);
    out->push_back(' ');
    AppendNumber(out, bounds.top - margin);
    out->push_back(' ');
    AppendNumber(out, bounds.right - bounds.left + 2 * margin);
    out->push_back(' ');
    AppendNumber(out, bounds.bottom - bounds.top + 2 * margin);
    *out += "\" font-family=\"Arial, sans-serif\">\n";
    Picture(out, frame.picture, frame.leftMargin, frame.pictureTop, IsBoardView(type));
    for (const CONSOLEKEY& key : keys)
        Key(out, key, rowOf(key.id), PictureCaption(key.id));
    for (const CONSOLEKEYLABEL& box : shapes.labels)
        LabelBox(out, box, labelOf(box.key));
    // The extensions stand right of the console in slot order.
    for (int slot = 0; slot < console.extensions; slot++) {
        int x = 0, y = 0;
        ExtensionStripOrigin(type, slot, &x, &y);
        Picture(out, ExtensionPicture(type), x, y, false);
        if (slot >= EXTENSION_SLOT_COUNT)
            continue;  // a strip without keys
        for (const CONSOLEKEY& key : shapes.extensionKeys[slot])
            Key(out, key, rowOf(key.id), std::to_string((key.id - EXTENSION_FIRST_KEY) % EXTENSION_KEY_COUNT + 1));
        for (const CONSOLEKEYLABEL& box : shapes.extensionLabels[slot])
            LabelBox(out, box, labelOf(box.key));
    }
    *out += "</svg>\n";
}
