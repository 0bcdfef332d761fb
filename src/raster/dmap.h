// dmap.h - the dot map: one page at embosser resolution, two bits a cell
// (0-2 a dot of that size, 3 no dot), four cells a byte, rows allocated per
// job; the gap rule that keeps dots apart, the erasers, and sending the page
// in hand to the output. The map is an output sink (raster/sink.h): in
// printer mode it collects the dots of figures, and Braille cells whenever
// it is in use.
#ifndef TACTO_RASTER_DMAP_H
#define TACTO_RASTER_DMAP_H

#include <cstdint>

struct DotMap {
  uint8_t **rows;       // one heap block of col_max / 4 + 2 bytes per row
  int row_min, row_max, col_min, col_max;
  int in_use;           // allocated, and the current output goes through it
  int printer_mode;     // set by `printer`, cleared by `plotter`: figures go into the map
  int has_dots;         // set by every put_dot that succeeds
  int row_lo, row_hi;   // rows holding dots, for the exchange-file output
  int gap_flag;         // 0 off, 1 dot with margin / only where room, 2 clear
  int gap_value;        // integer part of the gap argument, signed
  int gap_rows, gap_cols;  // radii in dots
};
extern DotMap dmap;

// Frees the map if allocated and restores start-up defaults.
void reset_dmap();

// Allocates and clears a map the size of the grid. A failed row reports
// "did not get dmap[%d] in heap" and ends the program (fatal_exit(1)).
int alloc_dmap();

// Every cell becomes 3 (no dot).
int clear_dmap();

// Frees every row and the row table; the map is no longer in use.
int free_dmap();

// Stores a size 0-6 (low two bits kept) at a cell; 0 after an error.
int set_dot(int row, int col, int size);

// The cell value 0-3 (3 after a reported overflow).
int get_dot(int row, int col);

// Places a dot of a size code under the gap rule.
int put_dot(int row, int col, int size);

// Calls `put` for every cell that holds a dot, row by row.
void each_map_dot(void (*put)(int row, int col, int size));

// Sends the page collected in the map to the output (the sinks' send_map)
// after the line "print_dmap %d" on the error stream; 0 with "no dot map".
int print_dmap();

// The page in hand goes out: when the map holds dots, print_dmap, and the
// map is cleared.
void flush_page();

// The gap command: flag 0-2 and a value in mm.
int set_gap(int flag, double value_mm);

// Clears the gap flag and its values (selecting a paper does this).
void reset_gap();

// Erases a disc of radius_mm around a world point.
int scrape(double wx, double wy, double radius_mm);

// Erases the rectangle with half-extents a (rows) and b (columns) around a world point.
int erase_rect(double wx, double wy, double a, double b);

#endif
