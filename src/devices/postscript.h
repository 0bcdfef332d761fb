// postscript.h - the PostScript document: tactile (every dot a circle) or
// ink print (lines, colour and text), always an A4 portrait page.
#ifndef TACTO_DEVICES_POSTSCRIPT_H
#define TACTO_DEVICES_POSTSCRIPT_H

#include <cstdio>

struct PsState {
  FILE *file;              // the open document
  int active;              // PostScript output is on
  int ink_print;           // 0 tactile, 1 ink print
  int menu_job;            // written by the menu's image job (header/trailer differ)
  int page_counter;        // starts at 1
  int page_start_pending;  // set by a page feed, consumed by the next dot
  int path_open;           // an ink-print stroke is in progress
};
extern PsState ps;

// Closes nothing; forgets the document (tests call it between cases).
void reset_postscript();

// Opens the document and writes the header; 0 after the open-failure message.
// menu_job selects the menu job's header and trailer.
int ps_open(const char *name, int ink_print, int menu_job);

// Writes the trailer and closes the document.
void ps_close();

// "showpage" and the next page comment, when a page start is pending.
void ps_flush_page_start();

// Writes the landscape turn lines when PostScript output is active.
void ps_turn_page();

// Flushes the document after each command.
void ps_flush();

// Page point of a world point (integer points, the box of the orientation).
void ps_point_from_world(double wx, double wy, int *x, int *y);

// Page point of a dot-map cell.
void ps_point_from_dot(int row, int col, int *x, int *y);

// A dot of plot_dot (world point, path code) and of plot0 (device cell).
void ps_plot(double wx, double wy, int kind);
void ps_plot0(int row, int col);

// One dot of the dot map as a circle of the stored size.
void ps_dot(int row, int col, int size);

// The script commands postscript FILE and inkprint FILE.
int ps_command(const char *name, int ink_print);

#endif
