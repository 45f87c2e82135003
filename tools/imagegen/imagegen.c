/* Draws the plug-in's images (PNG and BMP, plugin/resources/images) and the
 * host widgets' face bitmaps (BMP, host/bitmaps) with Cairo. The output is
 * committed; run `tools/imagegen/build-and-run` after changing a drawing.
 *
 * The console view's pictures (console fronts, the circuit boards, the key
 * extensions) leave the keys out: the plug-in fills each key's place and
 * draws the cap from the key strips on top, so the pictures show the key
 * fields, the display, the housing and the board around them. */
#include <cairo.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

typedef struct {
    double r, g, b;
} RGB;

static void RoundedRect(cairo_t* cr, double x, double y, double w, double h, double radius)
{
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - radius, y + radius, radius, -M_PI / 2, 0);
    cairo_arc(cr, x + w - radius, y + h - radius, radius, 0, M_PI / 2);
    cairo_arc(cr, x + radius, y + h - radius, radius, M_PI / 2, M_PI);
    cairo_arc(cr, x + radius, y + radius, radius, M_PI, 3 * M_PI / 2);
    cairo_close_path(cr);
}

static void Fill(cairo_t* cr, RGB c, double alpha)
{
    cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha);
    cairo_fill(cr);
}

static const RGB white = {1, 1, 1}, black = {0, 0, 0};

static RGB Hex(unsigned int value)
{
    RGB c = {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0};
    return c;
}

/* `a` moved towards `b` by t (0 keeps a, 1 gives b). */
static RGB Mix(RGB a, RGB b, double t)
{
    RGB c = {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
    return c;
}

static void Source(cairo_t* cr, RGB c, double alpha)
{
    cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha);
}

/* A top-to-bottom shading between y0 and y1. */
static void SourceVertical(cairo_t* cr, double y0, double y1, RGB top, RGB bottom)
{
    cairo_pattern_t* pattern = cairo_pattern_create_linear(0, y0, 0, y1);
    cairo_pattern_add_color_stop_rgb(pattern, 0, top.r, top.g, top.b);
    cairo_pattern_add_color_stop_rgb(pattern, 1, bottom.r, bottom.g, bottom.b);
    cairo_set_source(cr, pattern);
    cairo_pattern_destroy(pattern);
}

/* A shading along the diagonal from (x0, y0) to (x1, y1). */
static void SourceAlong(cairo_t* cr, double x0, double y0, double x1, double y1, RGB from, RGB to)
{
    cairo_pattern_t* pattern = cairo_pattern_create_linear(x0, y0, x1, y1);
    cairo_pattern_add_color_stop_rgb(pattern, 0, from.r, from.g, from.b);
    cairo_pattern_add_color_stop_rgb(pattern, 1, to.r, to.g, to.b);
    cairo_set_source(cr, pattern);
    cairo_pattern_destroy(pattern);
}

/* Text with its baseline at y; align 0 puts x at the left end, 0.5 in the
 * middle, 1 at the right end. The source must be set. */
static void Text(cairo_t* cr, const char* text, double x, double y, double size, int bold, double align)
{
    cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, size);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, text, &extents);
    cairo_move_to(cr, x - align * extents.x_advance, y);
    cairo_show_text(cr, text);
    cairo_new_path(cr); /* so that no later arc joins on at the text's end */
}

/* A field set into the housing: a dark rim above and left, a light one below
 * and right, and a soft shadow under the upper rim. `around` is the housing's
 * colour there. */
static void Inset(cairo_t* cr, double x, double y, double w, double h, double radius, RGB fill, RGB around)
{
    RoundedRect(cr, x - 1, y - 1, w + 1, h + 1, radius);
    Fill(cr, Mix(around, black, 0.45), 1.0);
    RoundedRect(cr, x, y, w + 1, h + 1, radius);
    Fill(cr, Mix(around, white, 0.40), 1.0);
    RoundedRect(cr, x, y, w, h, radius);
    Fill(cr, fill, 1.0);

    cairo_save(cr);
    RoundedRect(cr, x, y, w, h, radius);
    cairo_clip(cr);
    cairo_pattern_t* shadow = cairo_pattern_create_linear(0, y, 0, y + 4);
    cairo_pattern_add_color_stop_rgba(shadow, 0, 0, 0, 0, 0.22);
    cairo_pattern_add_color_stop_rgba(shadow, 1, 0, 0, 0, 0);
    cairo_set_source(cr, shadow);
    cairo_rectangle(cr, x, y, w, 4);
    cairo_fill(cr);
    cairo_pattern_destroy(shadow);
    shadow = cairo_pattern_create_linear(x, 0, x + 3, 0);
    cairo_pattern_add_color_stop_rgba(shadow, 0, 0, 0, 0, 0.12);
    cairo_pattern_add_color_stop_rgba(shadow, 1, 0, 0, 0, 0);
    cairo_set_source(cr, shadow);
    cairo_rectangle(cr, x, y, 3, h);
    cairo_fill(cr);
    cairo_pattern_destroy(shadow);
    cairo_restore(cr);
}

/* A countersunk cross-head screw. */
static void Screw(cairo_t* cr, double cx, double cy, double radius, RGB around)
{
    cairo_arc(cr, cx, cy, radius + 0.8, 0, 2 * M_PI);
    Fill(cr, Mix(around, black, 0.40), 1.0);
    cairo_arc(cr, cx, cy, radius, 0, 2 * M_PI);
    SourceAlong(cr, cx - radius, cy - radius, cx + radius, cy + radius, Hex(0xE6E6E6), Hex(0x77797C));
    cairo_fill(cr);
    cairo_set_line_width(cr, 1);
    Source(cr, Hex(0x3A3B3D), 0.9);
    const double arm = radius * 0.6;
    cairo_move_to(cr, cx - arm, cy);
    cairo_line_to(cr, cx + arm, cy);
    cairo_move_to(cr, cx, cy - arm);
    cairo_line_to(cr, cx, cy + arm);
    cairo_stroke(cr);
}

static int SavePng(cairo_surface_t* surface, const char* folder, const char* name)
{
    char path[512];
    snprintf(path, sizeof path, "%s/%s", folder, name);
    cairo_status_t status = cairo_surface_write_to_png(surface, path);
    if (status != CAIRO_STATUS_SUCCESS) {
        fprintf(stderr, "imagegen: cannot write %s: %s\n", path, cairo_status_to_string(status));
        return 1;
    }
    printf("%s\n", path);
    return 0;
}

/* A small console face: a housing with a transparent display window at the
 * top (the canvas shows its online colour through it), an accent stripe and a
 * key field. Keypads have no display and more keys. The smallest faces are
 * a plain accent square. */
static int SmallConsole(const char* folder, int id, RGB accent, int keypad, int width, int height)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    if (width < 16 || height < 16) {
        cairo_rectangle(cr, 0, 0, width, height);
        Fill(cr, accent, 1.0);
        char name[64];
        snprintf(name, sizeof name, "smallconsole%d.png", id);
        const int failed = SavePng(surface, folder, name);
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
        return failed;
    }

    RoundedRect(cr, 0.5, 0.5, width - 1, height - 1, 5);
    cairo_set_source_rgb(cr, 0.22, 0.23, 0.25);
    cairo_fill_preserve(cr);
    cairo_set_source_rgb(cr, 0.08, 0.08, 0.09);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);

    /* The display window: cut out, so the canvas colour shows. */
    cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
    RoundedRect(cr, 4, 2, width - 8, keypad ? 9 : 11, 2);
    cairo_fill(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);

    cairo_rectangle(cr, 3, keypad ? 13 : 15, width - 6, 2);
    Fill(cr, accent, 1.0);

    const int columns = keypad ? 4 : 3;
    const int rows = keypad ? 5 : 4;
    const double top = keypad ? 18 : 20;
    const double cell = (width - 8.0) / columns;
    const double rowHeight = (height - top - 4.0) / rows;
    for (int row = 0; row < rows; row++) {
        for (int column = 0; column < columns; column++) {
            RoundedRect(cr, 4 + column * cell + 1, top + row * rowHeight + 1, cell - 2, rowHeight - 2, 1.5);
            cairo_set_source_rgb(cr, 0.78, 0.79, 0.80);
            cairo_fill(cr);
        }
    }

    char name[64];
    snprintf(name, sizeof name, "smallconsole%d.png", id);
    const int failed = SavePng(surface, folder, name);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* Writes the surface as a 24-bit Windows bitmap (the host's widgets load
 * their faces with LoadImage, which takes BMP files). */
static int WriteBmp(cairo_surface_t* surface, const char* path)
{
    cairo_surface_flush(surface);
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int rowSize = (width * 3 + 3) & ~3;
    const unsigned int imageSize = (unsigned int)(rowSize * height);
    unsigned char header[54] = {'B', 'M'};
    const unsigned int fileSize = 54 + imageSize;
    const unsigned int fields[] = {fileSize, 0, 54, 40, (unsigned int)width, (unsigned int)height};
    for (int i = 0; i < 6; i++)
        for (int b = 0; b < 4; b++)
            header[2 + i * 4 + b] = (unsigned char)(fields[i] >> (8 * b));
    header[26] = 1;   /* planes */
    header[28] = 24;  /* bits per pixel */
    for (int b = 0; b < 4; b++)
        header[34 + b] = (unsigned char)(imageSize >> (8 * b));
    if (rowSize > 4096) {
        fprintf(stderr, "imagegen: %s is too wide for a bitmap row\n", path);
        return 1;
    }
    FILE* file = fopen(path, "wb");
    if (!file) {
        fprintf(stderr, "imagegen: cannot write %s\n", path);
        return 1;
    }
    int written = fwrite(header, 1, sizeof header, file) == sizeof header;
    unsigned char row[4096];
    for (int y = height - 1; y >= 0; y--) {  /* bottom-up */
        memset(row, 0, sizeof row);
        for (int x = 0; x < width; x++) {
            const unsigned int pixel = *(const unsigned int*)(data + y * stride + x * 4);  /* premultiplied ARGB, opaque */
            row[x * 3 + 0] = (unsigned char)(pixel & 0xFF);
            row[x * 3 + 1] = (unsigned char)((pixel >> 8) & 0xFF);
            row[x * 3 + 2] = (unsigned char)((pixel >> 16) & 0xFF);
        }
        written = written && fwrite(row, 1, (size_t)rowSize, file) == (size_t)rowSize;
    }
    if (fclose(file) != 0 || !written) {
        fprintf(stderr, "imagegen: cannot write %s\n", path);
        return 1;
    }
    printf("%s\n", path);
    return 0;
}

static int SaveBmp(cairo_surface_t* surface, const char* folder, const char* name)
{
    char path[512];
    snprintf(path, sizeof path, "%s/%s", folder, name);
    return WriteBmp(surface, path);
}

/* The Supervision page's state lamps, 15 x 13 on the page grey: a domed
   lens in a dark bezel, grey (state unknown), green (no fault), red (fault). */
static int Lamp(const char* folder, const char* name, RGB lens)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 15, 13);
    cairo_t* cr = cairo_create(surface);
    Source(cr, Hex(0xD4D0C8), 1);
    cairo_paint(cr);
    const double cx = 7.5, cy = 6.5;
    cairo_arc(cr, cx, cy, 6.2, 0, 2 * M_PI);
    Source(cr, Hex(0x3A3D42), 1);
    cairo_fill(cr);
    cairo_pattern_t* dome = cairo_pattern_create_radial(cx - 1.6, cy - 1.8, 0.5, cx, cy, 5.2);
    RGB light = Mix(lens, white, 0.65);
    RGB deep = Mix(lens, black, 0.35);
    cairo_pattern_add_color_stop_rgb(dome, 0, light.r, light.g, light.b);
    cairo_pattern_add_color_stop_rgb(dome, 0.55, lens.r, lens.g, lens.b);
    cairo_pattern_add_color_stop_rgb(dome, 1, deep.r, deep.g, deep.b);
    cairo_arc(cr, cx, cy, 5.0, 0, 2 * M_PI);
    cairo_set_source(cr, dome);
    cairo_fill(cr);
    cairo_pattern_destroy(dome);
    cairo_arc(cr, cx - 1.7, cy - 1.9, 1.2, 0, 2 * M_PI);
    Source(cr, white, 0.75);
    cairo_fill(cr);
    cairo_destroy(cr);
    int failed = SaveBmp(surface, folder, name);
    cairo_surface_destroy(surface);
    return failed;
}

/* The configuration window's online indicator, 52 x 41: a lit green lamp
   over "ONLINE", or a dark one over "OFFLINE", on the page grey. */
static int OnlineIndicator(const char* folder, const char* name, int online)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 52, 41);
    cairo_t* cr = cairo_create(surface);
    Source(cr, Hex(0xD4D0C8), 1);
    cairo_paint(cr);
    RoundedRect(cr, 1.5, 1.5, 49, 38, 4);
    Source(cr, Hex(0x4C4C4C), 1);
    cairo_fill(cr);
    const RGB lens = online ? Hex(0x39D353) : Hex(0x2B4A31);
    cairo_arc(cr, 26, 14, 8, 0, 2 * M_PI);
    Source(cr, Hex(0x1E1F22), 1);
    cairo_fill(cr);
    cairo_pattern_t* dome = cairo_pattern_create_radial(24, 11.5, 0.5, 26, 14, 6.8);
    RGB light = Mix(lens, white, online ? 0.7 : 0.25);
    cairo_pattern_add_color_stop_rgb(dome, 0, light.r, light.g, light.b);
    cairo_pattern_add_color_stop_rgb(dome, 1, lens.r, lens.g, lens.b);
    cairo_arc(cr, 26, 14, 6.6, 0, 2 * M_PI);
    cairo_set_source(cr, dome);
    cairo_fill(cr);
    cairo_pattern_destroy(dome);
    Source(cr, online ? white : Hex(0xA0A0A0), 1);
    Text(cr, online ? "ONLINE" : "OFFLINE", 26, 34, 8, 1, 0.5);
    cairo_destroy(cr);
    int failed = SaveBmp(surface, folder, name);
    cairo_surface_destroy(surface);
    return failed;
}

static void Bevel(cairo_t* cr, double x, double y, double w, double h, int sunken)
{
    cairo_set_line_width(cr, 1);
    cairo_set_source_rgb(cr, sunken ? 0.44 : 0.95, sunken ? 0.44 : 0.94, sunken ? 0.39 : 0.89);
    cairo_move_to(cr, x + 0.5, y + h - 0.5);
    cairo_line_to(cr, x + 0.5, y + 0.5);
    cairo_line_to(cr, x + w - 0.5, y + 0.5);
    cairo_stroke(cr);
    cairo_set_source_rgb(cr, sunken ? 0.95 : 0.44, sunken ? 0.94 : 0.44, sunken ? 0.89 : 0.39);
    cairo_move_to(cr, x + w - 0.5, y + 0.5);
    cairo_line_to(cr, x + w - 0.5, y + h - 0.5);
    cairo_line_to(cr, x + 0.5, y + h - 0.5);
    cairo_stroke(cr);
}

/* A face strip: `frames` looks side by side, each w x h. Toggles: off, on,
 * unknown; buttons: up, down; LEDs: off, on. */
static int FaceStrip(const char* path, int w, int h, int frames, RGB face, RGB lamps[3], int lampStyle)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, w * frames, h);
    cairo_t* cr = cairo_create(surface);
    for (int f = 0; f < frames; f++) {
        const double x = f * w;
        if (lampStyle == 2) { /* an LED: a lit or dark round lamp on the page grey */
            cairo_rectangle(cr, x, 0, w, h);
            cairo_set_source_rgb(cr, 0.83, 0.82, 0.78);
            cairo_fill(cr);
            cairo_arc(cr, x + w / 2.0, h / 2.0, w / 2.0 - 1, 0, 2 * M_PI);
            cairo_set_source_rgb(cr, lamps[f].r, lamps[f].g, lamps[f].b);
            cairo_fill_preserve(cr);
            cairo_set_source_rgb(cr, 0.3, 0.3, 0.3);
            cairo_set_line_width(cr, 1);
            cairo_stroke(cr);
            continue;
        }
        cairo_rectangle(cr, x, 0, w, h);
        cairo_set_source_rgb(cr, face.r, face.g, face.b);
        cairo_fill(cr);
        const int pressed = lampStyle == 1 && f == 1;
        Bevel(cr, x, 0, w, h, pressed);
        if (lampStyle == 0) { /* a toggle: a lamp square at the left */
            const double size = h - 6;
            cairo_rectangle(cr, x + 3, 3, size, size);
            cairo_set_source_rgb(cr, lamps[f].r, lamps[f].g, lamps[f].b);
            cairo_fill_preserve(cr);
            cairo_set_source_rgb(cr, 0.3, 0.3, 0.3);
            cairo_set_line_width(cr, 1);
            cairo_stroke(cr);
        }
    }
    const int failed = WriteBmp(surface, path);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

static int WidgetBitmaps(const char* root)
{
    const RGB grey = {0.83, 0.82, 0.78}, pale = {0.90, 0.89, 0.86}, blue = {0.74, 0.82, 0.93};
    RGB lamps[3] = {{0.35, 0.35, 0.35}, {0.20, 0.80, 0.25}, {0.85, 0.65, 0.20}};
    RGB dim[3] = {{0.70, 0.70, 0.68}, {0.70, 0.70, 0.68}, {0.70, 0.70, 0.68}};
    RGB led[3] = {{0.40, 0.40, 0.40}, {0.25, 0.90, 0.30}, {0.40, 0.40, 0.40}};
    /* style: 0 toggle with a lamp, 1 push button, 2 round LED */
    const struct {
        const char* file;
        int w, h, frames;
        RGB face;
        RGB* lamps;
        int style;
    } faces[] = {
        {"Controls/_ZELButton.bmp", 90, 16, 3, grey, lamps, 0},
        {"Controls/_ZELButtonDisabled.bmp", 90, 16, 3, pale, dim, 0},
        {"Controls/_ZELButtonFIND.bmp", 90, 16, 3, blue, lamps, 0},
        {"Controls/radiobutton_am_39x13.bmp", 39, 13, 3, grey, lamps, 0},
        {"Controls/SWITCHBUTTON_118_22.bmp", 118, 22, 3, grey, lamps, 0},
        {"Controls/PUSHBUTTON_118_22.bmp", 118, 22, 2, grey, lamps, 1},
        {"templates/Userpanel/id.bmp", 30, 16, 2, grey, lamps, 1},
        {"templates/Userpanel/online.bmp", 11, 11, 2, grey, led, 2},
    };
    int failures = 0;
    for (size_t i = 0; i < sizeof faces / sizeof faces[0]; i++) {
        char path[512];
        snprintf(path, sizeof path, "%s/%s", root, faces[i].file);
        failures += FaceStrip(path, faces[i].w, faces[i].h, faces[i].frames, faces[i].face, faces[i].lamps,
                              faces[i].style);
    }
    return failures;
}

/* ---- The console view ----
 * The plug-in fills each key's place (console grey or board green), draws the
 * cap from the key strip on top and writes the key's name on the cap in white;
 * the pictures show the recesses, fields or footprints round those places.
 * The key offsets below count from the key origin: the view puts a front
 * picture at (18, 26) with the origin at (32, 50), a board picture at (32, 32)
 * with the origin at (38, 38), so in the pictures the origin is at (14, 24)
 * and (6, 6). The PTT key stands on a front's upper edge. */
enum { KeyW = 31, KeyH = 18, SpecialSize = 46 };

static const double frontOrigin[2] = {14, 24}, boardOrigin[2] = {6, 6};

static const RGB keyField = {0.75, 0.75, 0.75}; /* #BFBFBF, what the plug-in fills behind a console's key */
static const RGB boardGreen = {0.20, 0.60, 0.40}; /* #339966, the solder mask and the fill behind a board's key */
static const RGB silk = {0.94, 0.94, 0.90};

static double KeypadX(int k) { return 231 + 64 * (k % 3); }
static double KeypadY(int k) { return 102 + 48 * (k / 3); }
static const double navigationKeys[4][2] = {{71, 198}, {135, 198}, {71, 246}, {135, 246}};
static const double wideKey[2] = {70, 294};
static const double specialX[3] = {231, 288, 344};

/* A model's looks: the housing's shading, its edge, the display's bezel and
 * an accent line (the anthracite models carry a coloured one). */
typedef struct {
    const char* file;
    int height;
    RGB top, bottom, outline, bezel, accent;
    int accented;
    int statusLamps;   /* the classic console has three lamps right of a narrower display */
    int wideKeyHeight; /* 38 on the classic console, 29 on the anthracite ones */
} Housing;

/* ---- Key caps ---- */

enum { KeyBlank, KeyRest, KeyPressed };

typedef struct {
    RGB cap;
    RGB accent; /* a stripe along the lower edge of a wide key's face */
    int accented;
} CapStyle;

/* One cap filling w x h at (x, y). A blank (unassigned) place is only an
 * outline over a dim face; a cap at rest stands up with a light face and a
 * darker skirt below it; a pressed cap sits 1px lower right, darker, with the
 * shadow inside its upper edge. The corners stay transparent. */
static void KeyCap(cairo_t* cr, double x, double y, double w, double h, const CapStyle* style, int state)
{
    const double radius = h > 24 ? 4.5 : 3.5;
    const RGB rim = Mix(style->cap, black, 0.55);
    cairo_set_line_width(cr, 1);
    if (state == KeyBlank) {
        RoundedRect(cr, x + 0.5, y + 0.5, w - 1, h - 1, radius);
        Source(cr, style->cap, 0.30);
        cairo_fill_preserve(cr);
        Source(cr, rim, 0.70);
        cairo_stroke(cr);
        return;
    }
    const int pressed = state == KeyPressed;
    const double s = pressed ? 1 : 0;
    const double skirt = pressed ? 1 : (h > 24 ? 4 : 3);
    const RGB face = pressed ? Mix(style->cap, black, 0.20) : style->cap;

    RoundedRect(cr, x + s, y + s, w - s, h - s, radius);
    Fill(cr, rim, 1.0);
    RoundedRect(cr, x + 1 + s, y + 1 + s, w - 2 - s, h - 2 - s, radius - 1);
    SourceVertical(cr, y + s, y + h, Mix(face, white, 0.20), Mix(face, black, 0.35));
    cairo_fill(cr);

    const double faceX = x + 2 + s, faceY = y + 1.5 + s;
    const double faceW = w - 4 - s, faceH = h - 2.5 - skirt - s;
    RoundedRect(cr, faceX, faceY, faceW, faceH, radius - 1.5);
    if (pressed)
        SourceVertical(cr, faceY, faceY + faceH, Mix(face, black, 0.15), Mix(face, white, 0.05));
    else
        SourceVertical(cr, faceY, faceY + faceH, Mix(face, white, 0.45), Mix(face, white, 0.08));
    cairo_fill(cr);

    /* a glint along the upper edge, or the shadow that falls into a pressed cap */
    cairo_move_to(cr, faceX + 2, faceY + 0.5);
    cairo_line_to(cr, faceX + faceW - 2, faceY + 0.5);
    if (pressed)
        Source(cr, black, 0.30);
    else
        Source(cr, white, 0.65);
    cairo_stroke(cr);

    if (style->accented) {
        cairo_rectangle(cr, faceX + 7, faceY + faceH - 4, faceW - 14, 2);
        Fill(cr, pressed ? Mix(style->accent, black, 0.25) : style->accent, 1.0);
    }
}

/* A strip of three frames side by side: blank, at rest, pressed. */
static int KeyStrip(const char* folder, const char* name, int w, int h, const CapStyle* style)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 3 * w, h);
    cairo_t* cr = cairo_create(surface);
    for (int state = KeyBlank; state <= KeyPressed; state++)
        KeyCap(cr, state * w, 0, w, h, style, state);
    const int failed = SavePng(surface, folder, name);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* ---- Console fronts and key extensions ---- */

/* The housing, lit from above, with a bright edge just inside its rim. */
static void HousingShell(cairo_t* cr, const Housing* m, int width, int height)
{
    RoundedRect(cr, 1, 1, width - 2, height - 2, 12);
    SourceVertical(cr, 0, height, m->top, m->bottom);
    cairo_fill_preserve(cr);
    Source(cr, m->outline, 1.0);
    cairo_set_line_width(cr, 1.5);
    cairo_stroke(cr);
    RoundedRect(cr, 3.5, 3.5, width - 7, height - 7, 10);
    Source(cr, white, m->accented ? 0.10 : 0.30);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
}

/* The housing's colour at height y. */
static RGB HousingAt(const Housing* m, int height, double y)
{
    return Mix(m->top, m->bottom, y / height);
}

/* The display's glass: dark blue-grey, a dim line of text and a faint
 * reflection across its upper right. */
static void Display(cairo_t* cr, double x, double y, double w, double h)
{
    RoundedRect(cr, x, y, w, h, 2.5);
    SourceVertical(cr, y, y + h, Hex(0x3C4C5A), Hex(0x1A2229));
    cairo_fill(cr);

    cairo_select_font_face(cr, "DejaVu Sans Mono", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, 11);
    Source(cr, Hex(0xA8D8EE), 0.32);
    cairo_move_to(cr, x + 8, y + 20);
    cairo_show_text(cr, "READY");
    cairo_new_path(cr);
    cairo_rectangle(cr, x + 8, y + 26, w - 16, 1);
    Source(cr, Hex(0xA8D8EE), 0.14);
    cairo_fill(cr);

    cairo_save(cr);
    RoundedRect(cr, x, y, w, h, 2.5);
    cairo_clip(cr);
    cairo_move_to(cr, x + w * 0.42, y);
    cairo_line_to(cr, x + w, y);
    cairo_line_to(cr, x + w, y + h * 0.30);
    cairo_line_to(cr, x + w * 0.62, y + h);
    cairo_line_to(cr, x + w * 0.50, y + h);
    cairo_close_path(cr);
    Source(cr, white, 0.05);
    cairo_fill(cr);
    cairo_restore(cr);

    RoundedRect(cr, x + 0.5, y + 0.5, w - 1, h - 1, 2.5);
    Source(cr, black, 0.6);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
}

/* The brand on the housing. */
static void Brand(cairo_t* cr, const Housing* m, double x, double y, double size)
{
    Source(cr, m->accented ? Hex(0xE4E6EA) : Hex(0x3A3C40), 0.9);
    Text(cr, "ZEL", x, y, size, 1, 0);
}

/* A recess round a key's place: darker above and left, a light lip below. */
static void KeyRecess(cairo_t* cr, double x, double y, double w, double h)
{
    RoundedRect(cr, x - 2, y - 2, w + 4, h + 4, 4.5);
    Fill(cr, Mix(keyField, black, 0.30), 1.0);
    RoundedRect(cr, x - 1, y - 1, w + 3, h + 3, 4);
    Fill(cr, Mix(keyField, white, 0.45), 1.0);
    RoundedRect(cr, x - 1, y - 1, w + 2, h + 2, 4);
    Fill(cr, Mix(keyField, black, 0.12), 1.0);
}

/* The paper strip under a key for its name. */
static void LabelStrip(cairo_t* cr, double x, double y, double w, double h)
{
    cairo_rectangle(cr, x + 0.5, y + 0.5, w - 1, h - 1);
    Source(cr, Hex(0xF4F3EC), 1.0);
    cairo_fill_preserve(cr);
    Source(cr, Mix(keyField, black, 0.35), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
}

/* The loudspeaker's grille: rows of small holes. */
static void Grille(cairo_t* cr, double x, double y, double w, double h, RGB around)
{
    RoundedRect(cr, x, y, w, h, 6);
    Fill(cr, Mix(around, black, 0.08), 1.0);
    for (double cy = y + 6; cy < y + h - 3; cy += 6) {
        for (double cx = x + 7; cx < x + w - 4; cx += 6) {
            cairo_arc(cr, cx, cy + 0.6, 1.7, 0, 2 * M_PI);
            Fill(cr, Mix(around, white, 0.30), 1.0);
            cairo_arc(cr, cx, cy, 1.7, 0, 2 * M_PI);
            Fill(cr, Mix(around, black, 0.70), 1.0);
        }
    }
}

/* A console seen from above: the PTT key at the top left, the display with
 * the brand above it, the loudspeaker and the special keys at the upper
 * right, the keypad under them; under the display the name panel runs on down
 * round the navigation keys and the wide key. The fields are the grey the
 * plug-in fills behind the keys, with a recess round each key's place. */
static int ConsoleFront(const char* folder, const Housing* m)
{
    const int width = 425, height = m->height;
    const double ox = frontOrigin[0], oy = frontOrigin[1];
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    HousingShell(cr, m, width, height);

    Inset(cr, ox - 5, oy - 25 - 5, KeyW + 10, KeyH + 10, 5, keyField, HousingAt(m, height, oy - 30));
    KeyRecess(cr, ox, oy - 25, KeyW, KeyH);

    /* The display in its bezel; with the status lamps it ends short of them. */
    const double glassLeft = 60, glassRight = m->statusLamps ? 166 : 200;
    RoundedRect(cr, glassLeft - 6, 8, glassRight - glassLeft + 12, 102, 6);
    Source(cr, m->bezel, 1.0);
    cairo_fill_preserve(cr);
    Source(cr, Mix(m->bezel, black, 0.5), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    cairo_move_to(cr, glassLeft, 9.5);
    cairo_line_to(cr, glassRight, 9.5);
    Source(cr, white, 0.18);
    cairo_stroke(cr);
    Display(cr, glassLeft, 14, glassRight - glassLeft, 90);
    Brand(cr, m, glassLeft - 2, 128, 13);
    if (m->accented) {
        cairo_rectangle(cr, glassLeft + 34, 122, glassRight + 6 - (glassLeft + 34), 2);
        Fill(cr, m->accent, 1.0);
    }

    Grille(cr, 229, 6, 184, 32, HousingAt(m, height, 20));

    Inset(cr, 229, 40, 184, 62, 6, keyField, HousingAt(m, height, 40));
    const double specialY = oy + (m->statusLamps ? 26 : 22);
    for (int i = 0; i < 3; i++)
        KeyRecess(cr, ox + specialX[i], specialY, SpecialSize, SpecialSize);

    Inset(cr, 229, 110, 184, height - 4 - 110, 6, keyField, HousingAt(m, height, 110));
    for (int k = 0; k < 15; k++)
        KeyRecess(cr, ox + KeypadX(k), oy + KeypadY(k), KeyW, KeyH);

    Inset(cr, 24, 140, 180, height - 4 - 140, 6, keyField, HousingAt(m, height, 140));
    for (int n = 0; n < 4; n++)
        KeyRecess(cr, ox + navigationKeys[n][0], oy + navigationKeys[n][1], KeyW, KeyH);
    KeyRecess(cr, ox + wideKey[0], oy + wideKey[1], 95, m->wideKeyHeight);

    const double screws[4][2] = {{12, 80}, {12, height - 14.0}, {419, 34}, {419, height - 14.0}};
    for (int i = 0; i < 4; i++)
        Screw(cr, screws[i][0], screws[i][1], 3, HousingAt(m, height, screws[i][1]));

    const int failed = SavePng(surface, folder, m->file);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* A key extension: a narrow housing with a nameplate across the top and a
 * field of 4 x 5 keys, each in a recess with a label strip under it. */
static int ExtensionHousing(const char* folder, const Housing* m)
{
    const int width = 301, height = 331;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);
    HousingShell(cr, m, width, height);

    const RGB plate = m->accented ? Hex(0x1D1F23) : Hex(0xDCDCD7);
    Inset(cr, 16, 12, 269, 56, 5, plate, HousingAt(m, height, 12));
    Source(cr, m->accented ? Hex(0xE8E9EC) : Hex(0x303236), 1.0);
    Text(cr, "EXTENSION", 150.5, 46, 16, 1, 0.5);
    cairo_rectangle(cr, 100, 52, 101, 2);
    Fill(cr, m->accented ? m->accent : Hex(0x8C8C8C), 1.0);
    Source(cr, m->accented ? Hex(0xB8BBC2) : Hex(0x55585C), 1.0);
    Text(cr, "ZEL", 24, 24, 9, 1, 0);

    Inset(cr, 16, 78, 269, 245, 6, keyField, HousingAt(m, height, 78));
    for (int i = 0; i < 20; i++) {
        const double x = 39 + 64 * (i % 4), y = 91 + 48 * (i / 4);
        KeyRecess(cr, x, y, KeyW, KeyH);
        LabelStrip(cr, x - 8, y + 22, 47, 12);
    }
    const double screws[4][2] = {{8.5, 40}, {292.5, 40}, {8.5, 316}, {292.5, 316}};
    for (int i = 0; i < 4; i++)
        Screw(cr, screws[i][0], screws[i][1], 3, HousingAt(m, height, screws[i][1]));

    const int failed = SavePng(surface, folder, m->file);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* ---- Circuit boards ---- */

enum { LabelAbove, LabelBelow, LabelLeft, LabelRight };

/* A pin header in a housing: `pins` along it at a 6 px pitch, `rows` across. */
typedef struct {
    const char* label;
    double x, y;
    int pins, rows;
    int vertical; /* the pins run downwards */
    int labelAt;
} Header;

enum { QuadFlat, DualVertical, DualHorizontal, Electrolytic, Crystal, Regulator, Passive, Buzzer };

typedef struct {
    int kind;
    const char* label;
    double x, y, w, h;
} Placement;

/* A board: its connectors, components, tracks and vias. Tracks are polylines given
 * as a point count followed by that many x, y pairs, a count of 0 ending the
 * list; vias are x, y pairs ended by a negative x. */
typedef struct {
    const char* file;
    RGB shroud; /* the connectors' housings */
    const char* revision;
    const Header* headers;
    int headerCount;
    const Placement* placements;
    int placementCount;
    const double* tracks;
    const double* vias;
} Board;

static void SilkText(cairo_t* cr, const char* text, double x, double y, double size, double align)
{
    Source(cr, silk, 0.95);
    Text(cr, text, x, y, size, 1, align);
}

static void Via(cairo_t* cr, double x, double y)
{
    cairo_arc(cr, x, y, 2.2, 0, 2 * M_PI);
    Fill(cr, Hex(0xC9CCC4), 1.0);
    cairo_arc(cr, x, y, 0.9, 0, 2 * M_PI);
    Fill(cr, Hex(0x1C2420), 1.0);
}

static void Tracks(cairo_t* cr, const double* tracks)
{
    cairo_set_line_width(cr, 1.6);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    for (const double* t = tracks; *t > 0; t += 1 + 2 * (int)*t) {
        const int points = (int)*t;
        cairo_move_to(cr, t[1], t[2]);
        for (int i = 1; i < points; i++)
            cairo_line_to(cr, t[1 + 2 * i], t[2 + 2 * i]);
        Source(cr, Mix(boardGreen, Hex(0xA8E8BC), 0.35), 1.0);
        cairo_stroke(cr);
    }
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
}

static void MountingHole(cairo_t* cr, double cx, double cy)
{
    cairo_arc(cr, cx, cy, 6.5, 0, 2 * M_PI);
    Fill(cr, Hex(0xC8CBC2), 1.0);
    cairo_arc(cr, cx, cy, 3.6, 0, 2 * M_PI);
    Fill(cr, Hex(0x151917), 1.0);
}

/* A key's footprint: the switch's outline in silkscreen round the cap, and
 * the switch's legs showing at its right end. */
static void KeyFootprint(cairo_t* cr, double x, double y, double w, double h)
{
    RoundedRect(cr, x - 2.5, y - 2.5, w + 5, h + 5, 3);
    Source(cr, silk, 0.85);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    for (int leg = 0; leg < 2; leg++) {
        cairo_rectangle(cr, x + w + 3.5, leg ? y + h - 6 : y + 2, 3, 4);
        Fill(cr, Hex(0xCDD0C8), 1.0);
    }
}

static void HeaderConnector(cairo_t* cr, const Header* c, RGB shroud)
{
    const double pitch = 6;
    const double along = c->pins * pitch + 6, across = c->rows * pitch + 6;
    const double w = c->vertical ? across : along, h = c->vertical ? along : across;
    const double x = c->x, y = c->y;

    cairo_rectangle(cr, x + 1.5, y + 1.5, w, h);
    Source(cr, black, 0.30);
    cairo_fill(cr);
    cairo_rectangle(cr, x, y, w, h);
    SourceAlong(cr, x, y, x + w, y + h, Mix(shroud, white, 0.25), Mix(shroud, black, 0.15));
    cairo_fill_preserve(cr);
    Source(cr, Mix(shroud, black, 0.55), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    cairo_rectangle(cr, x + 2, y + 2, w - 4, h - 4);
    Fill(cr, Mix(shroud, black, 0.40), 1.0);
    /* the polarising gap in one long wall */
    if (c->vertical)
        cairo_rectangle(cr, x, y + h / 2 - 4, 2, 8);
    else
        cairo_rectangle(cr, x + w / 2 - 4, y + h - 2, 8, 2);
    Fill(cr, Mix(shroud, black, 0.40), 1.0);

    for (int i = 0; i < c->pins; i++) {
        for (int j = 0; j < c->rows; j++) {
            const double along0 = 6 + i * pitch, across0 = 6 + j * pitch;
            const double cx = x + (c->vertical ? across0 : along0), cy = y + (c->vertical ? along0 : across0);
            cairo_rectangle(cr, cx - 1.3, cy - 1.3, 2.6, 2.6);
            SourceAlong(cr, cx - 1.3, cy - 1.3, cx + 1.3, cy + 1.3, Hex(0xF2D878), Hex(0x9A7A2A));
            cairo_fill(cr);
        }
    }
    /* pin 1's end */
    cairo_arc(cr, x - 3.5, y + 3, 1.2, 0, 2 * M_PI);
    Fill(cr, silk, 0.9);

    switch (c->labelAt) {
    case LabelAbove:
        SilkText(cr, c->label, x, y - 4, 8, 0);
        break;
    case LabelBelow:
        SilkText(cr, c->label, x, y + h + 10, 8, 0);
        break;
    case LabelLeft:
        SilkText(cr, c->label, x - 4, y + h / 2 + 3, 8, 1);
        break;
    default:
        SilkText(cr, c->label, x + w + 4, y + h / 2 + 3, 8, 0);
        break;
    }
}

/* A chip body with its marking. */
static void ChipBody(cairo_t* cr, double x, double y, double w, double h, const char* marking)
{
    cairo_rectangle(cr, x, y, w, h);
    SourceAlong(cr, x, y, x + w, y + h, Hex(0x34363A), Hex(0x1A1B1E));
    cairo_fill(cr);
    cairo_arc(cr, x + 3.5, y + 3.5, 1.3, 0, 2 * M_PI);
    Fill(cr, Hex(0x505257), 1.0);
    Source(cr, Hex(0x8C8F96), 1.0);
    if (h > w + 8) { /* a tall narrow chip reads downwards */
        cairo_save(cr);
        cairo_translate(cr, x + w / 2 + 3, y + h / 2);
        cairo_rotate(cr, M_PI / 2);
        Text(cr, marking, 0, 0, 7, 1, 0.5);
        cairo_restore(cr);
    } else {
        Text(cr, marking, x + w / 2, y + h / 2 + 3, w > 30 ? 9 : 7, 1, 0.5);
    }
}

static void Pin(cairo_t* cr, double x, double y, double w, double h)
{
    cairo_rectangle(cr, x, y, w, h);
    Fill(cr, Hex(0xCDD0C8), 1.0);
}

static void Component(cairo_t* cr, const Placement* p)
{
    const double x = p->x, y = p->y, w = p->w, h = p->h;
    switch (p->kind) {
    case QuadFlat:
        for (double px = x + 4; px < x + w - 4; px += 3) {
            Pin(cr, px, y - 3, 1.6, 3);
            Pin(cr, px, y + h, 1.6, 3);
        }
        for (double py = y + 4; py < y + h - 4; py += 3) {
            Pin(cr, x - 3, py, 3, 1.6);
            Pin(cr, x + w, py, 3, 1.6);
        }
        ChipBody(cr, x, y, w, h, p->label);
        break;
    case DualVertical:
        for (double py = y + 3; py < y + h - 2; py += 4) {
            Pin(cr, x - 3, py, 3, 1.8);
            Pin(cr, x + w, py, 3, 1.8);
        }
        ChipBody(cr, x, y, w, h, p->label);
        break;
    case DualHorizontal:
        for (double px = x + 3; px < x + w - 2; px += 4) {
            Pin(cr, px, y - 3, 1.8, 3);
            Pin(cr, px, y + h, 1.8, 3);
        }
        ChipBody(cr, x, y, w, h, p->label);
        break;
    case Electrolytic: {
        const double cx = x + w / 2, cy = y + w / 2, r = w / 2;
        cairo_arc(cr, cx, cy, r + 2, 0, 2 * M_PI);
        Source(cr, silk, 0.85);
        cairo_set_line_width(cr, 1);
        cairo_stroke(cr);
        cairo_arc(cr, cx, cy, r, 0, 2 * M_PI);
        SourceAlong(cr, cx - r, cy - r, cx + r, cy + r, Hex(0xE8EAEE), Hex(0x8A8E96));
        cairo_fill(cr);
        cairo_save(cr);
        cairo_arc(cr, cx, cy, r, 0, 2 * M_PI);
        cairo_clip(cr);
        cairo_rectangle(cr, cx + r * 0.45, cy - r, r, 2 * r); /* the minus stripe */
        Fill(cr, Hex(0x243052), 1.0);
        cairo_restore(cr);
        cairo_set_line_width(cr, 1);
        Source(cr, Hex(0x5A5E66), 0.9);
        cairo_move_to(cr, cx - r * 0.5, cy);
        cairo_line_to(cr, cx + r * 0.3, cy);
        cairo_move_to(cr, cx - r * 0.1, cy - r * 0.4);
        cairo_line_to(cr, cx - r * 0.1, cy + r * 0.4);
        cairo_stroke(cr);
        SilkText(cr, p->label, x + w + 4, y + 8, 7, 0);
        break;
    }
    case Crystal:
        RoundedRect(cr, x, y, w, h, h / 2);
        SourceVertical(cr, y, y + h, Hex(0xEEEEEE), Hex(0x8E9096));
        cairo_fill_preserve(cr);
        Source(cr, Hex(0x5A5C60), 1.0);
        cairo_set_line_width(cr, 1);
        cairo_stroke(cr);
        SilkText(cr, p->label, x + w + 3, y + h, 7, 0);
        break;
    case Regulator:
        Pin(cr, x + 3, y, w - 6, h * 0.4);
        ChipBody(cr, x, y + h * 0.35, w, h * 0.65, "");
        Pin(cr, x + 3, y + h, 2, 3);
        Pin(cr, x + w - 5, y + h, 2, 3);
        SilkText(cr, p->label, x + w / 2, y + h + 11, 7, 0.5);
        break;
    case Passive: {
        const RGB body = p->label[0] == 'C' ? Hex(0xB8A070) : Hex(0x222325);
        cairo_rectangle(cr, x, y, w, h);
        Fill(cr, Hex(0xCDD0C8), 1.0);
        cairo_rectangle(cr, x + 1.5, y, w - 3, h);
        Fill(cr, body, 1.0);
        break;
    }
    case Buzzer: {
        const double cx = x + w / 2, cy = y + w / 2, r = w / 2;
        cairo_arc(cr, cx + 1, cy + 1.5, r, 0, 2 * M_PI);
        Source(cr, black, 0.3);
        cairo_fill(cr);
        cairo_arc(cr, cx, cy, r, 0, 2 * M_PI);
        SourceAlong(cr, cx - r, cy - r, cx + r, cy + r, Hex(0x3A3C40), Hex(0x141517));
        cairo_fill(cr);
        cairo_arc(cr, cx, cy, r * 0.22, 0, 2 * M_PI);
        Fill(cr, Hex(0x050505), 1.0);
        SilkText(cr, "+", cx + r * 0.55, cy - r * 0.55, 8, 0.5);
        SilkText(cr, p->label, x + w + 3, y + w - 2, 7, 0);
        break;
    }
    }
}

/* The circuit board behind the console's front: the solder mask, tracks, the
 * keys' switch footprints, chips, connectors and the silkscreen. The places
 * of the name field, its lamp and the logo stay bare. */
static int CircuitBoard(const char* folder, const Board* b)
{
    const int width = 465, height = 395;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);

    RoundedRect(cr, 0.5, 0.5, width - 1, height - 1, 7);
    Fill(cr, boardGreen, 1.0);
    RoundedRect(cr, 0.5, 0.5, width - 1, height - 1, 7);
    Source(cr, Mix(boardGreen, black, 0.45), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    RoundedRect(cr, 2.5, 2.5, width - 5, height - 5, 5);
    Source(cr, Mix(boardGreen, white, 0.25), 0.5);
    cairo_stroke(cr);

    Tracks(cr, b->tracks);
    for (const double* v = b->vias; *v >= 0; v += 2)
        Via(cr, v[0], v[1]);

    const double ox = boardOrigin[0], oy = boardOrigin[1];
    KeyFootprint(cr, ox, oy - 4, KeyW, KeyH);
    SilkText(cr, "PTT", ox + 41, oy + 11, 7, 0);
    for (int k = 0; k < 15; k++)
        KeyFootprint(cr, ox + KeypadX(k), oy + KeypadY(k), KeyW, KeyH);
    for (int n = 0; n < 4; n++)
        KeyFootprint(cr, ox + navigationKeys[n][0], oy + navigationKeys[n][1], KeyW, KeyH);
    RoundedRect(cr, ox + wideKey[0] - 2.5, oy + wideKey[1] - 2.5, 95 + 5, 38 + 5, 3);
    Source(cr, silk, 0.85);
    cairo_stroke(cr);
    for (int s = 0; s < 3; s++) {
        RoundedRect(cr, ox + specialX[s] - 3.5, oy + 26 - 3.5, SpecialSize + 7, SpecialSize + 7, 5);
        Source(cr, silk, 0.85);
        cairo_stroke(cr);
    }

    for (int i = 0; i < b->placementCount; i++)
        Component(cr, &b->placements[i]);
    for (int i = 0; i < b->headerCount; i++)
        HeaderConnector(cr, &b->headers[i], b->shroud);

    const double holes[4][2] = {{16, 62}, {450.5, 14.5}, {450.5, 380.5}, {14.5, 380.5}};
    for (int i = 0; i < 4; i++)
        MountingHole(cr, holes[i][0], holes[i][1]);

    SilkText(cr, "ZEL", 300, 370, 12, 0);
    SilkText(cr, b->revision, 334, 370, 7, 0);

    const int failed = SavePng(surface, folder, b->file);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* The first board: cream connector housings, the connectors round the right
 * and bottom edges. The wide key's label box covers (64, 121)-(185, 152), so
 * nothing stands there. */
static const Header boardHeadersA[] = {
    {"CN15", 44, 78, 14, 1, 0, LabelAbove},   {"CN17", 250, 5, 8, 1, 0, LabelRight},
    {"CN3", 422, 26, 8, 2, 1, LabelAbove},    {"CN4", 422, 122, 8, 2, 1, LabelAbove},
    {"CN5", 422, 218, 6, 2, 1, LabelAbove},   {"CN16", 14, 166, 8, 1, 1, LabelAbove},
    {"CN10", 26, 352, 7, 2, 0, LabelBelow},   {"CN11", 110, 352, 5, 2, 0, LabelBelow},
    {"CN12", 196, 352, 6, 1, 0, LabelBelow},
};
static const Placement boardPlacementsA[] = {
    {QuadFlat, "U1", 120, 20, 40, 40},     {Crystal, "Y1", 176, 22, 16, 7},
    {DualHorizontal, "U2", 176, 42, 22, 10}, {Electrolytic, "C1", 50, 30, 20, 20},
    {Regulator, "U5", 84, 26, 18, 16},     {DualVertical, "U3", 198, 126, 12, 40},
    {DualVertical, "U4", 198, 194, 12, 40}, {DualVertical, "U6", 198, 262, 12, 32},
    {Buzzer, "BZ1", 86, 160, 26, 26},      {Electrolytic, "C2", 142, 166, 16, 16},
    {Passive, "R1", 104, 52, 6, 3},        {Passive, "R2", 104, 58, 6, 3},
    {Passive, "C3", 166, 64, 3, 6},        {Passive, "C4", 172, 64, 3, 6},
    {Passive, "R3", 216, 134, 6, 3},       {Passive, "R4", 216, 142, 6, 3},
    {Passive, "R5", 32, 180, 6, 3},        {Passive, "R6", 32, 188, 6, 3},
    {Passive, "C5", 446, 292, 3, 6},       {Passive, "R7", 428, 300, 6, 3},
    {Passive, "C6", 446, 304, 3, 6},
};
static const double boardTracksA[] = {
    /* U1 to CN3 under the special keys */
    5, 143, 63, 143, 86, 405, 86, 405, 32, 422, 32,
    5, 147, 63, 147, 90, 409, 90, 409, 38, 422, 38,
    5, 151, 63, 151, 94, 413, 94, 413, 44, 422, 44,
    5, 155, 63, 155, 98, 417, 98, 417, 50, 422, 50,
    /* U1 and U2 to CN17 */
    3, 150, 17, 150, 11, 250, 11,
    3, 196, 39, 196, 15, 250, 15,
    /* between the keypad's columns */
    2, 282, 104, 282, 342,
    2, 346, 104, 346, 340,
    2, 350, 126, 350, 306,
    /* the key drivers to the lower connectors */
    5, 195, 140, 188, 140, 188, 346, 140, 346, 140, 352,
    3, 195, 210, 192, 210, 192, 300,
    /* CN16 to CN10 */
    4, 26, 172, 44, 172, 44, 344, 50, 352,
    3, 26, 184, 38, 184, 38, 352,
    0,
};
static const double boardViasA[] = {
    282, 104, 282, 342, 346, 104, 346, 340, 350, 126, 350, 306, 192, 300,
    120, 196, 126, 196, 436, 100, 442, 100, 436, 198, 442, 198, 90, 350, 96, 350, -1,
};

/* The second board: dark housings, the bus connectors moved to the bottom
 * edge and the expansion connectors up the right. */
static const Header boardHeadersB[] = {
    {"CN15", 44, 78, 14, 1, 0, LabelAbove},   {"CN17", 422, 32, 6, 1, 1, LabelAbove},
    {"CN5", 422, 104, 8, 2, 1, LabelAbove},   {"CN10", 422, 196, 5, 2, 1, LabelAbove},
    {"CN11", 422, 270, 5, 1, 1, LabelAbove},  {"CN16", 14, 166, 10, 1, 1, LabelAbove},
    {"CN12", 26, 352, 6, 2, 0, LabelBelow},   {"CN3", 110, 352, 8, 2, 0, LabelBelow},
    {"CN4", 200, 352, 6, 2, 0, LabelBelow},
};
static const Placement boardPlacementsB[] = {
    {QuadFlat, "U1", 104, 16, 46, 46},     {Crystal, "Y1", 104, 68, 16, 7},
    {DualHorizontal, "U2", 168, 24, 30, 10}, {Electrolytic, "C1", 50, 34, 18, 18},
    {Regulator, "U5", 176, 44, 18, 14},    {DualHorizontal, "U7", 300, 8, 26, 9},
    {DualVertical, "U3", 198, 120, 12, 48}, {DualVertical, "U4", 198, 194, 12, 48},
    {DualVertical, "U6", 198, 266, 12, 24}, {Buzzer, "BZ1", 86, 160, 24, 24},
    {Electrolytic, "C2", 144, 168, 14, 14}, {Electrolytic, "C7", 408, 350, 18, 18},
    {Passive, "R1", 84, 40, 6, 3},         {Passive, "R2", 84, 46, 6, 3},
    {Passive, "C3", 156, 30, 3, 6},        {Passive, "R3", 216, 128, 6, 3},
    {Passive, "R4", 216, 136, 6, 3},       {Passive, "R5", 216, 144, 6, 3},
    {Passive, "C4", 34, 240, 3, 6},        {Passive, "C5", 40, 240, 3, 6},
    {Passive, "R6", 262, 10, 6, 3},        {Passive, "R7", 272, 10, 6, 3},
};
static const double boardTracksB[] = {
    /* U1 to CN17 and CN5 under the special keys */
    5, 138, 65, 138, 86, 405, 86, 405, 38, 422, 38,
    5, 142, 65, 142, 90, 413, 90, 413, 112, 422, 112,
    5, 146, 65, 146, 94, 409, 94, 409, 118, 422, 118,
    /* between the keypad's columns, down to CN4 */
    5, 282, 104, 282, 342, 276, 348, 244, 348, 244, 352,
    2, 286, 116, 286, 330,
    2, 346, 104, 346, 340,
    /* the key drivers to CN3 */
    5, 195, 150, 188, 150, 188, 346, 160, 346, 160, 352,
    3, 195, 220, 192, 220, 192, 310,
    /* CN16 to CN12 */
    4, 26, 180, 42, 180, 42, 344, 50, 352,
    0,
};
static const double boardViasB[] = {
    282, 104, 286, 116, 286, 330, 346, 104, 346, 340, 192, 310,
    120, 196, 126, 196, 436, 176, 442, 176, 436, 252, 442, 252, 90, 350, 96, 350, 340, 16, -1,
};

/* ---- Special keys: the alarm button and the key switch ---- */

/* The red mushroom button of the alarm in its dark collar; pressed, the cap
 * sinks, goes darker and loses most of its shine. */
static void AlarmButton(cairo_t* cr, double cx, double cy, int pressed)
{
    cairo_arc(cr, cx + 1, cy + 1.5, 21, 0, 2 * M_PI);
    Source(cr, black, 0.30);
    cairo_fill(cr);
    cairo_arc(cr, cx, cy, 21, 0, 2 * M_PI);
    SourceAlong(cr, cx - 21, cy - 21, cx + 21, cy + 21, Hex(0x65686E), Hex(0x222428));
    cairo_fill(cr);
    cairo_arc(cr, cx, cy, 18.5, 0, 2 * M_PI);
    Fill(cr, Hex(0x141517), 1.0);

    const double r = pressed ? 15 : 16.5;
    const double dx = pressed ? 0.8 : -0.3, dy = pressed ? 0.8 : -0.5;
    if (!pressed) {
        cairo_arc(cr, cx + 1.2, cy + 2, r, 0, 2 * M_PI);
        Source(cr, black, 0.45);
        cairo_fill(cr);
    }
    cairo_pattern_t* dome = cairo_pattern_create_radial(cx + dx - 5, cy + dy - 6, 1, cx + dx, cy + dy, r + 2);
    if (pressed) {
        cairo_pattern_add_color_stop_rgb(dome, 0, 0.78, 0.30, 0.27);
        cairo_pattern_add_color_stop_rgb(dome, 0.45, 0.62, 0.10, 0.08);
        cairo_pattern_add_color_stop_rgb(dome, 1, 0.28, 0.02, 0.02);
    } else {
        cairo_pattern_add_color_stop_rgb(dome, 0, 1.00, 0.62, 0.56);
        cairo_pattern_add_color_stop_rgb(dome, 0.40, 0.90, 0.16, 0.13);
        cairo_pattern_add_color_stop_rgb(dome, 1, 0.47, 0.04, 0.03);
    }
    cairo_arc(cr, cx + dx, cy + dy, r, 0, 2 * M_PI);
    cairo_set_source(cr, dome);
    cairo_fill(cr);
    cairo_pattern_destroy(dome);
    if (pressed) {
        cairo_arc(cr, cx + dx, cy + dy, r - 1, 0, 2 * M_PI);
        Source(cr, black, 0.35);
        cairo_set_line_width(cr, 2);
        cairo_stroke(cr);
    }
    cairo_save(cr);
    cairo_translate(cr, cx + dx - 5, cy + dy - 7);
    cairo_scale(cr, 1, 0.6);
    cairo_arc(cr, 0, 0, 6, 0, 2 * M_PI);
    cairo_restore(cr);
    Source(cr, white, pressed ? 0.15 : 0.45);
    cairo_fill(cr);
}

/* The key switch: a chrome bezel, the lock cylinder and the key standing in
 * it, upright at rest and turned a quarter to the right. */
static void KeySwitch(cairo_t* cr, double cx, double cy, int turned)
{
    cairo_arc(cr, cx + 1, cy + 1.5, 21, 0, 2 * M_PI);
    Source(cr, black, 0.30);
    cairo_fill(cr);
    cairo_arc(cr, cx, cy, 21, 0, 2 * M_PI);
    SourceAlong(cr, cx - 15, cy - 15, cx + 15, cy + 15, Hex(0xF4F4F4), Hex(0x6E7074));
    cairo_fill(cr);
    cairo_arc(cr, cx, cy, 17, 0, 2 * M_PI);
    SourceAlong(cr, cx - 12, cy - 12, cx + 12, cy + 12, Hex(0x7A7C80), Hex(0xE6E6E6));
    cairo_fill(cr);
    cairo_arc(cr, cx, cy, 14.5, 0, 2 * M_PI);
    SourceAlong(cr, cx - 10, cy - 10, cx + 10, cy + 10, Hex(0xD8D6CE), Hex(0x9C9A92));
    cairo_fill(cr);

    /* the two positions, marked on the bezel */
    cairo_arc(cr, cx, cy - 19, 1.2, 0, 2 * M_PI);
    Fill(cr, Hex(0x202124), 1.0);
    cairo_arc(cr, cx + 19, cy, 1.2, 0, 2 * M_PI);
    Fill(cr, Hex(0xC02018), 1.0);

    cairo_save(cr);
    cairo_translate(cr, cx, cy);
    cairo_rotate(cr, turned ? M_PI / 2 : 0);
    cairo_rectangle(cr, -1.5, -10, 3, 20); /* the keyway */
    Fill(cr, Hex(0x2A2A2C), 1.0);
    RoundedRect(cr, -4.5 + 1, -17 + 1.5, 9, 34, 3); /* the key's bow, end on */
    Source(cr, black, 0.35);
    cairo_fill(cr);
    RoundedRect(cr, -4.5, -17, 9, 34, 3);
    SourceAlong(cr, -4.5, 0, 4.5, 0, Hex(0x4A4C52), Hex(0x17181B));
    cairo_fill(cr);
    cairo_move_to(cr, -2.5, -14);
    cairo_line_to(cr, -2.5, 14);
    Source(cr, white, 0.30);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    cairo_arc(cr, 0, -12, 1.6, 0, 2 * M_PI); /* the key ring's hole */
    Fill(cr, Hex(0x0A0A0A), 1.0);
    cairo_restore(cr);
}

/* Five 46 x 46 frames on the fill the plug-in puts behind them: an empty
 * place, the alarm button at rest and pressed, the key switch off and on. */
static int SpecialStrip(const char* folder, const char* name, RGB background)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 5 * SpecialSize, SpecialSize);
    cairo_t* cr = cairo_create(surface);
    cairo_rectangle(cr, 0, 0, 5 * SpecialSize, SpecialSize);
    Fill(cr, background, 1.0);
    for (int frame = 0; frame < 5; frame++) {
        const double x = frame * SpecialSize, cx = x + SpecialSize / 2.0, cy = SpecialSize / 2.0;
        switch (frame) {
        case 0:
            RoundedRect(cr, x + 2.5, 2.5, SpecialSize - 5, SpecialSize - 5, 6);
            Source(cr, Mix(background, black, 0.22), 1.0);
            cairo_set_line_width(cr, 1);
            cairo_stroke(cr);
            break;
        case 1:
        case 2:
            AlarmButton(cr, cx, cy, frame == 2);
            break;
        default:
            KeySwitch(cr, cx, cy, frame == 4);
            break;
        }
    }
    const int failed = SaveBmp(surface, folder, name);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* ---- Small bitmaps ---- */

/* An LED mark, off (a dim, dark shade of its colour) beside on (lit, with a
 * bright spot); tall ones are the bar beside the wide key. */
static int LedStrip(const char* folder, const char* name, int w, int h, RGB lit)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 2 * w, h);
    cairo_t* cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    for (int on = 0; on < 2; on++) {
        const RGB body = on ? lit : Mix(Mix(lit, Hex(0x808080), 0.45), black, 0.55);
        const double x = on * w;
        cairo_rectangle(cr, x, 0, w, h);
        Fill(cr, Mix(body, black, 0.30), 1.0);
        cairo_rectangle(cr, x, 0, w - 1, h - 1);
        Fill(cr, body, 1.0);
        cairo_rectangle(cr, x + 1, 1, 1, h > w ? h - 3 : 1);
        Fill(cr, Mix(body, white, on ? 0.55 : 0.20), 1.0);
        if (on) {
            cairo_rectangle(cr, x + 1, 1, 1, 1);
            Fill(cr, Mix(lit, white, 0.80), 1.0);
        }
    }
    const int failed = SaveBmp(surface, folder, name);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* A key extension in miniature for the toolbar. */
static void ExtensionIcon(cairo_t* cr, double x, double y)
{
    cairo_rectangle(cr, x + 2.5, y + 2.5, 10, 14);
    Fill(cr, Hex(0x8E9096), 1.0);
    cairo_rectangle(cr, x + 2.5, y + 2.5, 10, 14);
    Source(cr, Hex(0x303236), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    cairo_rectangle(cr, x + 4, y + 4, 7, 2);
    Fill(cr, Hex(0x2A2C30), 1.0);
    for (int row = 0; row < 4; row++)
        for (int column = 0; column < 3; column++) {
            cairo_rectangle(cr, x + 4 + column * 2.5, y + 8 + row * 2, 1.5, 1);
            Fill(cr, white, 1.0);
        }
}

/* Three 20 x 20 tool images: the pointer, add an extension, remove one. */
static int Toolbar(const char* folder)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 60, 20);
    cairo_t* cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    cairo_rectangle(cr, 0, 0, 60, 20);
    Fill(cr, Hex(0xC0C0C0), 1.0);

    /* the pointer, pixel by pixel: B outline, W face */
    static const char* const arrow[] = {
        "B", "BB", "BWB", "BWWB", "BWWWB", "BWWWWB", "BWWWWWB", "BWWWWWWB", "BWWWWWWWB",
        "BWWWWWWWWB", "BWWWWWBBBBB", "BWWBWWB", "BWB BWWB", "BB  BWWB", "B    BWWB", "     BWWB", "      BB",
    };
    for (size_t row = 0; row < sizeof arrow / sizeof arrow[0]; row++) {
        for (size_t column = 0; arrow[row][column]; column++) {
            if (arrow[row][column] == ' ')
                continue;
            cairo_rectangle(cr, 5 + (double)column, 1 + (double)row, 1, 1);
            Fill(cr, arrow[row][column] == 'B' ? black : white, 1.0);
        }
    }

    for (int tool = 1; tool <= 2; tool++) {
        const double x = tool * 20;
        ExtensionIcon(cr, x, 0);
        const RGB sign = tool == 1 ? Hex(0x109020) : Hex(0xD02018);
        cairo_rectangle(cr, x + 10, 12, 9, 3);
        Fill(cr, sign, 1.0);
        if (tool == 1) {
            cairo_rectangle(cr, x + 13, 9, 3, 9);
            Fill(cr, sign, 1.0);
        }
    }
    const int failed = SaveBmp(surface, folder, "toolbar116.bmp");
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* The brand plate the board shows beside its name field. */
static int Logo(const char* folder)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 52, 21);
    cairo_t* cr = cairo_create(surface);
    cairo_rectangle(cr, 0, 0, 52, 21);
    SourceVertical(cr, 0, 21, Hex(0x2C3038), Hex(0x14161A));
    cairo_fill(cr);
    cairo_rectangle(cr, 1.5, 1.5, 49, 18);
    Source(cr, Hex(0x8A909C), 0.6);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    Source(cr, white, 1.0);
    Text(cr, "ZEL", 26, 16, 14, 1, 0.5);
    const int failed = SaveBmp(surface, folder, "logo203.bmp");
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* The focus marker: dotted corner marks on the dialog grey. */
static int FocusMarker(const char* folder)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 20, 20);
    cairo_t* cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    cairo_rectangle(cr, 0, 0, 20, 20);
    Fill(cr, Hex(0xC0C0C0), 1.0);
    for (int i = 0; i < 7; i += 2) {
        const int near = 1 + i, far = 18 - i;
        const int dots[8][2] = {{near, 1}, {1, near}, {far, 1}, {18, near}, {near, 18}, {1, far}, {far, 18}, {18, far}};
        for (int d = 0; d < 8; d++)
            cairo_rectangle(cr, dots[d][0], dots[d][1], 1, 1);
    }
    Fill(cr, black, 1.0);
    const int failed = SaveBmp(surface, folder, "bitmap115.bmp");
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    return failed;
}

/* Everything the console view shows. */
/* The key-function editor's drag cursors, 32 x 32 Windows cursor files
   (.cur) with 32-bit colour and an AND mask from the alpha: the arrow with
   a green "+" box where a drop is taken (105), a red no-entry sign where it
   is refused (111). The hot spot is the arrow's tip. */
static void DragArrow(cairo_t* cr)
{
    static const char* const arrow[] = {
        "B", "BB", "BWB", "BWWB", "BWWWB", "BWWWWB", "BWWWWWB", "BWWWWWWB", "BWWWWWWWB",
        "BWWWWWWWWB", "BWWWWWBBBBB", "BWWBWWB", "BWB BWWB", "BB  BWWB", "B    BWWB", "     BWWB", "      BB",
    };
    for (size_t row = 0; row < sizeof arrow / sizeof arrow[0]; row++)
        for (size_t column = 0; arrow[row][column]; column++) {
            if (arrow[row][column] == ' ')
                continue;
            cairo_rectangle(cr, (double)column, (double)row, 1, 1);
            Fill(cr, arrow[row][column] == 'B' ? black : white, 1.0);
        }
}

static int WriteCursor(cairo_surface_t* surface, const char* folder, const char* name)
{
    char path[512];
    snprintf(path, sizeof path, "%s/%s", folder, name);
    cairo_surface_flush(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    enum { SIZE = 32, XOR = SIZE * SIZE * 4, AND = SIZE * 4, IMAGE = 40 + XOR + AND };
    unsigned char file[6 + 16 + IMAGE];
    memset(file, 0, sizeof file);
    file[2] = 2;  /* a cursor */
    file[4] = 1;  /* one image */
    unsigned char* entry = file + 6;
    entry[0] = SIZE;
    entry[1] = SIZE;
    const unsigned int entryFields[2] = {IMAGE, 6 + 16};  /* hot spot 0, 0 */
    for (int i = 0; i < 2; i++)
        for (int b = 0; b < 4; b++)
            entry[8 + i * 4 + b] = (unsigned char)(entryFields[i] >> (8 * b));
    unsigned char* info = file + 6 + 16;
    const unsigned int infoFields[3] = {40, SIZE, SIZE * 2};  /* colour over mask */
    for (int i = 0; i < 3; i++)
        for (int b = 0; b < 4; b++)
            info[i * 4 + b] = (unsigned char)(infoFields[i] >> (8 * b));
    info[12] = 1;   /* planes */
    info[14] = 32;  /* bits per pixel */
    unsigned char* colour = info + 40;
    unsigned char* mask = colour + XOR;
    for (int y = 0; y < SIZE; y++) {
        const int row = SIZE - 1 - y;  /* bottom-up */
        for (int x = 0; x < SIZE; x++) {
            const unsigned int pixel = *(const unsigned int*)(data + y * stride + x * 4);
            const unsigned int alpha = pixel >> 24;
            unsigned char* out = colour + (row * SIZE + x) * 4;
            out[0] = (unsigned char)(pixel & 0xFF);
            out[1] = (unsigned char)((pixel >> 8) & 0xFF);
            out[2] = (unsigned char)((pixel >> 16) & 0xFF);
            out[3] = (unsigned char)alpha;
            if (alpha < 128)
                mask[row * 4 + x / 8] |= (unsigned char)(0x80 >> (x % 8));
        }
    }
    FILE* out = fopen(path, "wb");
    if (!out || fwrite(file, 1, sizeof file, out) != sizeof file || fclose(out) != 0) {
        fprintf(stderr, "imagegen: cannot write %s\n", path);
        return 1;
    }
    printf("%s\n", path);
    return 0;
}

static int DragCursor(const char* folder, const char* name, int accepted)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 32, 32);
    cairo_t* cr = cairo_create(surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    DragArrow(cr);
    if (accepted) {
        cairo_rectangle(cr, 12, 18, 13, 13);
        Fill(cr, black, 1.0);
        cairo_rectangle(cr, 13, 19, 11, 11);
        Fill(cr, white, 1.0);
        cairo_rectangle(cr, 14, 23, 9, 3);
        Fill(cr, Hex(0x109020), 1.0);
        cairo_rectangle(cr, 17, 20, 3, 9);
        Fill(cr, Hex(0x109020), 1.0);
    } else {
        cairo_set_antialias(cr, CAIRO_ANTIALIAS_DEFAULT);
        cairo_arc(cr, 19.5, 23.5, 7.5, 0, 2 * M_PI);
        Fill(cr, white, 1.0);
        cairo_set_line_width(cr, 2.5);
        cairo_arc(cr, 19.5, 23.5, 6, 0, 2 * M_PI);
        Source(cr, Hex(0xD02018), 1.0);
        cairo_stroke(cr);
        cairo_move_to(cr, 15.3, 19.3);
        cairo_line_to(cr, 23.7, 27.7);
        cairo_stroke(cr);
    }
    cairo_destroy(cr);
    const int failed = WriteCursor(surface, folder, name);
    cairo_surface_destroy(surface);
    return failed;
}

/* The key-function tree's images, eight 16 x 16 images in one strip on the
   mask colour magenta: 0 a key (the tree's default), 1 an empty key, 2 a
   folder, 3 a microphone (talk), 4 a zone plan (selection), 5 a bell
   (alarm), 6 a note (chime), 7 a stop sign (stop). */
static void TreeKey(cairo_t* cr, double x, RGB face)
{
    RoundedRect(cr, x + 2.5, 3.5, 11, 9, 2);
    Fill(cr, face, 1.0);
    RoundedRect(cr, x + 2.5, 3.5, 11, 9, 2);
    Source(cr, Hex(0x4A4D53), 1.0);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
    cairo_rectangle(cr, x + 5, 6, 6, 1);
    Fill(cr, white, 0.9);
}

static int TreeImages(const char* folder)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 128, 16);
    cairo_t* cr = cairo_create(surface);
    cairo_rectangle(cr, 0, 0, 128, 16);
    Fill(cr, Hex(0xFF00FF), 1.0);
    cairo_set_line_width(cr, 1);
    TreeKey(cr, 0, Hex(0x8C8F94));
    TreeKey(cr, 16, Hex(0xE4E4E4));
    /* 2: a folder */
    cairo_rectangle(cr, 32 + 1.5, 3.5, 6, 3);
    Fill(cr, Hex(0xE8B84A), 1.0);
    cairo_rectangle(cr, 32 + 1.5, 5.5, 13, 9);
    Fill(cr, Hex(0xF2CC66), 1.0);
    cairo_rectangle(cr, 32 + 1.5, 5.5, 13, 9);
    Source(cr, Hex(0x9A7420), 1.0);
    cairo_stroke(cr);
    /* 3: a microphone */
    RoundedRect(cr, 48 + 5.5, 1.5, 5, 8, 2.5);
    Fill(cr, Hex(0x4A4D53), 1.0);
    cairo_arc(cr, 48 + 8, 7, 4.5, 0, M_PI);
    Source(cr, Hex(0x4A4D53), 1.0);
    cairo_stroke(cr);
    cairo_rectangle(cr, 48 + 7.5, 11.5, 1, 3);
    Fill(cr, Hex(0x4A4D53), 1.0);
    cairo_rectangle(cr, 48 + 4.5, 14, 7, 1);
    Fill(cr, Hex(0x4A4D53), 1.0);
    /* 4: a zone plan, four rooms, one chosen */
    cairo_rectangle(cr, 64 + 1.5, 2.5, 13, 11);
    Fill(cr, white, 1.0);
    cairo_rectangle(cr, 64 + 2, 3, 6, 5);
    Fill(cr, Hex(0x2F7FE0), 1.0);
    cairo_rectangle(cr, 64 + 1.5, 2.5, 13, 11);
    cairo_move_to(cr, 64 + 8.5, 2.5);
    cairo_line_to(cr, 64 + 8.5, 13.5);
    cairo_move_to(cr, 64 + 1.5, 8.5);
    cairo_line_to(cr, 64 + 14.5, 8.5);
    Source(cr, Hex(0x4A4D53), 1.0);
    cairo_stroke(cr);
    /* 5: a bell */
    cairo_move_to(cr, 80 + 3, 12);
    cairo_curve_to(cr, 80 + 4, 10, 80 + 4, 3, 80 + 8, 3);
    cairo_curve_to(cr, 80 + 12, 3, 80 + 12, 10, 80 + 13, 12);
    cairo_close_path(cr);
    Fill(cr, Hex(0xE0302A), 1.0);
    cairo_arc(cr, 80 + 8, 13, 1.6, 0, 2 * M_PI);
    Fill(cr, Hex(0x8A1A14), 1.0);
    /* 6: a note */
    cairo_arc(cr, 96 + 5.5, 12, 2.5, 0, 2 * M_PI);
    Fill(cr, Hex(0x109020), 1.0);
    cairo_rectangle(cr, 96 + 7, 2, 1.5, 10);
    Fill(cr, Hex(0x109020), 1.0);
    cairo_move_to(cr, 96 + 8.5, 2);
    cairo_line_to(cr, 96 + 13, 5);
    cairo_line_to(cr, 96 + 8.5, 6);
    Fill(cr, Hex(0x109020), 1.0);
    /* 7: a stop sign */
    cairo_move_to(cr, 112 + 5, 1.5);
    cairo_line_to(cr, 112 + 11, 1.5);
    cairo_line_to(cr, 112 + 14.5, 5);
    cairo_line_to(cr, 112 + 14.5, 11);
    cairo_line_to(cr, 112 + 11, 14.5);
    cairo_line_to(cr, 112 + 5, 14.5);
    cairo_line_to(cr, 112 + 1.5, 11);
    cairo_line_to(cr, 112 + 1.5, 5);
    cairo_close_path(cr);
    Fill(cr, Hex(0xD02018), 1.0);
    cairo_rectangle(cr, 112 + 4, 7, 8, 2);
    Fill(cr, white, 1.0);
    cairo_destroy(cr);
    const int failed = SaveBmp(surface, folder, "keytree214.bmp");
    cairo_surface_destroy(surface);
    return failed;
}

static int ConsoleViewImages(const char* folder)
{
    const Housing classicFront = {"consoleimage105.png", 355, Hex(0xC2C2C2), Hex(0xA8A8A8), Hex(0x5E5E5E),
                                  Hex(0x2A2C30), Hex(0x8C8C8C), 0, 1, 38};
    const Housing blueFront = {"consoleimage196.png", 339, Hex(0x484B52), Hex(0x2A2C31), Hex(0x151618),
                               Hex(0x141518), Hex(0x2F7FE0), 1, 0, 29};
    const Housing orangeFront = {"consoleimage195.png", 339, Hex(0x484B52), Hex(0x2A2C31), Hex(0x151618),
                                 Hex(0x141518), Hex(0xF06A1E), 1, 0, 29};
    Housing classicExtension = classicFront, blueExtension = blueFront, orangeExtension = orangeFront;
    classicExtension.file = "consoleimage102.png";
    blueExtension.file = "consoleimage202.png";
    orangeExtension.file = "consoleimage201.png";

    const Board boardA = {"consoleimage189.png", Hex(0xEAE4D2), "REV B",
                          boardHeadersA, (int)(sizeof boardHeadersA / sizeof boardHeadersA[0]),
                          boardPlacementsA, (int)(sizeof boardPlacementsA / sizeof boardPlacementsA[0]), boardTracksA, boardViasA};
    const Board boardB = {"consoleimage206.png", Hex(0x2E2F33), "REV D",
                          boardHeadersB, (int)(sizeof boardHeadersB / sizeof boardHeadersB[0]),
                          boardPlacementsB, (int)(sizeof boardPlacementsB / sizeof boardPlacementsB[0]), boardTracksB, boardViasB};

    const CapStyle grey = {Hex(0x8C8F94), {0, 0, 0}, 0}; /* dark enough for the white key names */
    const CapStyle dark = {Hex(0x4A4D53), {0, 0, 0}, 0};
    const CapStyle darkBlue = {Hex(0x4A4D53), Hex(0x2F7FE0), 1};
    const CapStyle darkOrange = {Hex(0x4A4D53), Hex(0xF06A1E), 1};

    int failures = 0;
    failures += ConsoleFront(folder, &classicFront);
    failures += ConsoleFront(folder, &blueFront);
    failures += ConsoleFront(folder, &orangeFront);
    failures += CircuitBoard(folder, &boardA);
    failures += CircuitBoard(folder, &boardB);
    failures += ExtensionHousing(folder, &classicExtension);
    failures += ExtensionHousing(folder, &blueExtension);
    failures += ExtensionHousing(folder, &orangeExtension);
    failures += KeyStrip(folder, "key107.png", KeyW, KeyH, &grey);
    failures += KeyStrip(folder, "key197.png", KeyW, KeyH, &dark);
    failures += KeyStrip(folder, "returnkey108.png", 95, 38, &grey);
    failures += KeyStrip(folder, "returnkey198.png", 95, 29, &darkBlue);
    failures += KeyStrip(folder, "returnkey199.png", 95, 29, &darkOrange);
    failures += SpecialStrip(folder, "rolekeys193.bmp", boardGreen);
    failures += SpecialStrip(folder, "rolekeys156.bmp", keyField);
    failures += LedStrip(folder, "led109.bmp", 5, 5, Hex(0x73D973));
    failures += LedStrip(folder, "led112.bmp", 5, 5, Hex(0xD9D973));
    failures += LedStrip(folder, "led111.bmp", 5, 5, Hex(0xD97373));
    failures += LedStrip(folder, "led110.bmp", 5, 28, Hex(0x73D973));
    failures += LedStrip(folder, "led200.bmp", 5, 23, Hex(0x73D973));
    failures += Toolbar(folder);
    failures += Logo(folder);
    failures += FocusMarker(folder);
    failures += Lamp(folder, "lamp140.bmp", Hex(0x9A9EA3));
    failures += Lamp(folder, "lamp141.bmp", Hex(0x2FBF4A));
    failures += Lamp(folder, "lamp142.bmp", Hex(0xE0302A));
    failures += OnlineIndicator(folder, "onlineled207.bmp", 1);
    failures += OnlineIndicator(folder, "onlineled208.bmp", 0);
    failures += DragCursor(folder, "drop105.cur", 1);
    failures += DragCursor(folder, "nodrop111.cur", 0);
    failures += TreeImages(folder);
    return failures;
}

int main(int argc, char** argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: imagegen PLUGIN-IMAGE-FOLDER HOST-BITMAP-FOLDER\n");
        return 2;
    }
    if (WidgetBitmaps(argv[2]))
        return 1;
    const RGB familyA = {0.15, 0.45, 0.80};
    const RGB familyB = {0.90, 0.50, 0.10};
    const RGB zel = {0.30, 0.65, 0.35};
    int failures = 0;
    failures += SmallConsole(argv[1], 103, zel, 0, 54, 55);
    failures += SmallConsole(argv[1], 106, familyA, 0, 74, 57);
    failures += SmallConsole(argv[1], 194, familyB, 0, 74, 57);
    failures += SmallConsole(argv[1], 148, zel, 0, 5, 5);
    failures += SmallConsole(argv[1], 160, zel, 1, 5, 5);
    failures += SmallConsole(argv[1], 188, familyA, 1, 74, 59);
    failures += ConsoleViewImages(argv[1]);
    return failures ? 1 : 0;
}
