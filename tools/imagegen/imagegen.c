/* Draws the plug-in's images (PNG, plugin/resources/images) and the host
 * widgets' face bitmaps (BMP, host/bitmaps) with Cairo. The output is
 * committed; run `tools/imagegen/build-and-run` after changing a drawing. */
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

/* A small console face: a housing with a transparent display window at the
 * top (the canvas shows its online colour through it), an accent stripe and a
 * key field. Keypads have no display and more keys. */
static int SmallConsole(const char* folder, int id, RGB accent, int keypad)
{
    const int width = 48, height = 56;
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(surface);

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

    char path[512];
    snprintf(path, sizeof path, "%s/smallconsole%d.png", folder, id);
    cairo_status_t status = cairo_surface_write_to_png(surface, path);
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        fprintf(stderr, "imagegen: cannot write %s: %s\n", path, cairo_status_to_string(status));
        return 1;
    }
    printf("%s\n", path);
    return 0;
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
    FILE* file = fopen(path, "wb");
    if (!file)
        return 1;
    fwrite(header, 1, sizeof header, file);
    unsigned char row[4096];
    for (int y = height - 1; y >= 0; y--) {  /* bottom-up */
        memset(row, 0, sizeof row);
        for (int x = 0; x < width; x++) {
            const unsigned int pixel = *(const unsigned int*)(data + y * stride + x * 4);  /* premultiplied ARGB, opaque */
            row[x * 3 + 0] = (unsigned char)(pixel & 0xFF);
            row[x * 3 + 1] = (unsigned char)((pixel >> 8) & 0xFF);
            row[x * 3 + 2] = (unsigned char)((pixel >> 16) & 0xFF);
        }
        fwrite(row, 1, (size_t)rowSize, file);
    }
    fclose(file);
    printf("%s\n", path);
    return 0;
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
    failures += SmallConsole(argv[1], 106, familyA, 0);
    failures += SmallConsole(argv[1], 194, familyB, 0);
    failures += SmallConsole(argv[1], 148, zel, 0);
    failures += SmallConsole(argv[1], 160, zel, 1);
    failures += SmallConsole(argv[1], 188, familyA, 1);
    return failures ? 1 : 0;
}
