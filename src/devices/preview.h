// preview.h - pictures of the embossed sheet through cairo: a PNG (8-bit
// grey), an SVG or a PDF, chosen by the file name's extension. Dots are
// placed in mm on the sheet and drawn as discs; a PDF holds every page, PNG
// and SVG write a file per page (sheet.png, sheet-2.png, ...).
#ifndef TACTO_DEVICES_PREVIEW_H
#define TACTO_DEVICES_PREVIEW_H

#include <cairo.h>

#include <cstdio>
#include <string>

#include "devices/sheet.h"

enum : int { PREVIEW_PNG, PREVIEW_SVG, PREVIEW_PDF };
enum : int { PREVIEW_DPI = 100, PREVIEW_DPI_MIN = 10, PREVIEW_DPI_MAX = 600 };

// A document being drawn. Its surfaces write through its address: keep it
// in place from preview_begin to preview_end.
struct Preview {
  int kind;                   // PREVIEW_*
  std::string path;           // the name given; later pages derive theirs from it
  std::string file_name;      // the file being written, for messages
  FILE *file;                 // PDF: the document; PNG and SVG: the page's file
  Sheet sheet;                // the sheet of the page in hand and of the next
  int dpi;                    // PNG resolution
  int pages;                  // pages begun so far
  int page_open;              // a page is begun and not yet written
  int write_errno;            // errno of a failed write, 0 if none
  int failed;                 // an error was reported, or the document is finished
  cairo_surface_t *surface;
  cairo_t *cr;
};

// The format a file name asks for (.png, .svg, .pdf, any case), or -1.
int preview_kind_of(const char *path);

// The file of a page: the name itself for page 1, "sheet-N.ext" after.
std::string preview_page_path(const std::string &path, int page);

// Starts a document and its first page on the given sheet; dpi 0 means
// PREVIEW_DPI. 0 after an error naming the file and the reason.
int preview_begin(Preview &pv, const char *path, const Sheet &sheet, int dpi);

// Draws a dot centred x_mm from the left and y_mm from the top edge of the
// sheet as it lies, of size 0-2; hollow draws its outline only (mirroring).
// A page is begun first if none is open.
void preview_dot(Preview &pv, double x_mm, double y_mm, int size, int hollow);

// The sheet for pages begun from now on (a page already drawn keeps its own).
void preview_set_sheet(Preview &pv, const Sheet &sheet);

// Ends the page in hand (a blank one if none was begun) and writes it out
// for PNG and SVG. 0 after an error.
int preview_end_page(Preview &pv);

// Writes the open page, finishes the document and frees everything; a page
// left empty after a page end is not written. 0 after an error.
int preview_end(Preview &pv);

#endif
