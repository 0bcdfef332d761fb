// preview.cpp - the sheet drawn through cairo. One routine paints the paper
// and the dots for the three formats; they differ only in the surface and
// in how ink is put down (an 8-bit grey PNG is cairo's alpha-only image,
// where ink is the absence of alpha).
#include "devices/preview.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <strings.h>

#include <cerrno>
#include <cmath>
#include <cstring>

#include "core/diag.h"

static const double POINTS_PER_MM = 72 / 25.4;

int preview_kind_of(const char *path) {
  const char *dot = strrchr(path, '.');
  if (dot == nullptr || strchr(dot, '/') != nullptr) return -1;
  if (strcasecmp(dot, ".png") == 0) return PREVIEW_PNG;
  if (strcasecmp(dot, ".svg") == 0) return PREVIEW_SVG;
  if (strcasecmp(dot, ".pdf") == 0) return PREVIEW_PDF;
  return -1;
}

std::string preview_page_path(const std::string &path, int page) {
  if (page <= 1) return path;
  size_t dot = path.rfind('.');
  return path.substr(0, dot) + "-" + std::to_string(page) + path.substr(dot);
}

// Frees the page's drawing and surface and closes the file, reporting
// nothing (after an error, or once the parts are written).
static void release(Preview &pv) {
  if (pv.cr != nullptr) cairo_destroy(pv.cr);
  if (pv.surface != nullptr) cairo_surface_destroy(pv.surface);
  if (pv.file != nullptr) fclose(pv.file);
  pv.cr = nullptr;
  pv.surface = nullptr;
  pv.file = nullptr;
  pv.page_open = 0;
}

// Reports an error about the file in hand, gives up the document and returns 0.
static int fail(Preview &pv, const char *what, const char *reason) {
  release(pv);
  pv.failed = 1;
  return put_errorf("cannot %s %s: %s", what, pv.file_name.c_str(), reason);
}

static cairo_status_t write_chunk(void *closure, const unsigned char *data, unsigned int length) {
  Preview &pv = *static_cast<Preview *>(closure);
  if (pv.file != nullptr && fwrite(data, 1, length, pv.file) == length) return CAIRO_STATUS_SUCCESS;
  if (pv.write_errno == 0) pv.write_errno = errno != 0 ? errno : EIO;
  return CAIRO_STATUS_WRITE_ERROR;
}

static int open_file(Preview &pv, const std::string &name) {
  pv.file_name = name;
  pv.write_errno = 0;
  pv.file = fopen(name.c_str(), "wb");
  if (pv.file == nullptr) return fail(pv, "create", strerror(errno));
  return 1;
}

// Closes the file, reporting a write that failed on the way or at the end.
static int close_file(Preview &pv) {
  int failed = ferror(pv.file);
  int closed = fclose(pv.file) == 0;
  pv.file = nullptr;
  if (!failed && closed && pv.write_errno == 0) return 1;
  int err = pv.write_errno != 0 ? pv.write_errno : errno != 0 ? errno : EIO;
  return fail(pv, "write", strerror(err));
}

// A cairo status that is not success ends the document with its reason.
static int check(Preview &pv, cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return 1;
  if (status == CAIRO_STATUS_WRITE_ERROR && pv.write_errno != 0) return fail(pv, "write", strerror(pv.write_errno));
  return fail(pv, "draw", cairo_status_to_string(status));
}

// The paper, and the ink for what follows. In the grey PNG full alpha is
// white paper and ink replaces it by none, so dots come out black.
static void paint_paper(cairo_t *cr, int kind) {
  cairo_set_source_rgba(cr, 1, 1, 1, 1);
  cairo_paint(cr);
  if (kind == PREVIEW_PNG) {
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_rgba(cr, 0, 0, 0, 0);
  } else {
    cairo_set_source_rgba(cr, 0, 0, 0, 1);
  }
}

// One dot: a filled disc, or its outline one point wide.
static void draw_dot(cairo_t *cr, double x, double y, double r, int hollow) {
  cairo_new_path(cr);
  cairo_arc(cr, x, y, r, 0, 2 * M_PI);
  if (hollow) {
    cairo_set_line_width(cr, 1 / POINTS_PER_MM);
    cairo_stroke(cr);
  } else {
    cairo_fill(cr);
  }
}

// Pixels of a length in mm at the preview's resolution, at least one; past
// cairo's largest image (32767) cairo itself refuses the size.
static int pixels(const Preview &pv, double mm) {
  double n = std::round(mm * pv.dpi / 25.4);
  if (!(n >= 1)) return 1;
  return n > 32768 ? 32768 : static_cast<int>(n);
}

static int start_page(Preview &pv) {
  if (pv.failed) return 0;
  pv.pages++;
  double w = sheet_width(pv.sheet), h = sheet_height(pv.sheet);
  double scale = POINTS_PER_MM;
  if (pv.kind == PREVIEW_PDF) {
    cairo_pdf_surface_set_size(pv.surface, w * POINTS_PER_MM, h * POINTS_PER_MM);
  } else {
    if (!open_file(pv, preview_page_path(pv.path, pv.pages))) return 0;
    if (pv.kind == PREVIEW_SVG) {
      pv.surface = cairo_svg_surface_create_for_stream(write_chunk, &pv, w * POINTS_PER_MM, h * POINTS_PER_MM);
    } else {
      pv.surface = cairo_image_surface_create(CAIRO_FORMAT_A8, pixels(pv, w), pixels(pv, h));
      scale = pv.dpi / 25.4;
    }
    if (!check(pv, cairo_surface_status(pv.surface))) return 0;
  }
  pv.cr = cairo_create(pv.surface);
  cairo_scale(pv.cr, scale, scale);  // from here on everything is in mm
  paint_paper(pv.cr, pv.kind);
  pv.page_open = 1;
  return check(pv, cairo_status(pv.cr));
}

int preview_begin(Preview &pv, const char *path, const Sheet &sheet, int dpi) {
  pv = Preview();
  pv.path = path;
  pv.file_name = path;
  pv.sheet = sheet;
  pv.dpi = dpi == 0 ? PREVIEW_DPI : dpi;
  pv.kind = preview_kind_of(path);
  if (pv.kind < 0) {
    pv.failed = 1;
    return put_errorf("cannot tell the kind of preview %s (.png, .svg or .pdf)", path);
  }
  if (pv.dpi < PREVIEW_DPI_MIN || pv.dpi > PREVIEW_DPI_MAX) {
    pv.failed = 1;
    return put_errorf("illegal dpi %d (%d-%d)", pv.dpi, PREVIEW_DPI_MIN, PREVIEW_DPI_MAX);
  }
  if (pv.kind == PREVIEW_PDF) {
    if (!open_file(pv, pv.path)) return 0;
    pv.surface = cairo_pdf_surface_create_for_stream(write_chunk, &pv, sheet_width(sheet) * POINTS_PER_MM,
                                                     sheet_height(sheet) * POINTS_PER_MM);
    if (!check(pv, cairo_surface_status(pv.surface))) return 0;
    cairo_pdf_surface_set_metadata(pv.surface, CAIRO_PDF_METADATA_TITLE, "tactile graphics");
    cairo_pdf_surface_set_metadata(pv.surface, CAIRO_PDF_METADATA_CREATOR, "Tacto");
  }
  return start_page(pv);
}

void preview_dot(Preview &pv, double x_mm, double y_mm, int size, int hollow) {
  if (!pv.page_open && !start_page(pv)) return;
  draw_dot(pv.cr, x_mm, y_mm, sheet_dot_radius_mm(size), hollow);
}

void preview_set_sheet(Preview &pv, const Sheet &sheet) { pv.sheet = sheet; }

// Writes the page in hand: the PDF's next page, or the page's own file.
static int finish_page(Preview &pv) {
  pv.page_open = 0;
  if (pv.kind == PREVIEW_PDF) {
    cairo_show_page(pv.cr);
    cairo_status_t status = cairo_status(pv.cr);
    cairo_destroy(pv.cr);
    pv.cr = nullptr;
    return check(pv, status);
  }
  cairo_status_t status = cairo_status(pv.cr);
  cairo_destroy(pv.cr);
  pv.cr = nullptr;
  if (!check(pv, status)) return 0;
  if (pv.kind == PREVIEW_PNG) {
    status = cairo_surface_write_to_png_stream(pv.surface, write_chunk, &pv);
  } else {
    cairo_surface_finish(pv.surface);
    status = cairo_surface_status(pv.surface);
  }
  if (!check(pv, status)) return 0;
  cairo_surface_destroy(pv.surface);
  pv.surface = nullptr;
  return close_file(pv);
}

int preview_end_page(Preview &pv) {
  if (pv.failed) return 0;
  if (!pv.page_open && !start_page(pv)) return 0;
  return finish_page(pv);
}

int preview_end(Preview &pv) {
  if (pv.failed) {
    release(pv);
    return 0;
  }
  if (pv.page_open && !finish_page(pv)) return 0;
  if (pv.kind == PREVIEW_PDF) {
    cairo_surface_finish(pv.surface);
    if (!check(pv, cairo_surface_status(pv.surface))) return 0;
    cairo_surface_destroy(pv.surface);
    pv.surface = nullptr;
    if (!close_file(pv)) return 0;
  }
  release(pv);
  pv.failed = 1;  // finished: further dots are ignored
  return 1;
}
