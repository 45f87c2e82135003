/* Draws the plug-in's bitmaps with Cairo and writes them as PNG files into
 * the folder given on the command line (plugin/resources/images). The output
 * is committed; run `tools/imagegen/build-and-run` after changing a drawing. */
#include <cairo.h>
#include <math.h>
#include <stdio.h>

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

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: imagegen OUTPUT-FOLDER\n");
        return 2;
    }
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
