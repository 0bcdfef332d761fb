// embosser.h - the byte streams of the three graphics embossers: plotter
// mode, dot addresses, dot sizes, form feeds and whole pages from the dot
// map. The embosser is the last output sink: it takes what no other output
// took (raster/sink.h).
#ifndef TACTO_DEVICES_EMBOSSER_H
#define TACTO_DEVICES_EMBOSSER_H

#include <cstdio>

struct Embosser {
  FILE *out;              // receives embosser bytes (standard output by default)
  int output_enabled;     // 0: nothing is written and emit reports 0
  int output_suppressed;  // 1: nothing is written but emit reports 1
  int plotter_mode;       // the enter sequence was sent
  int everest_setup_sent; // the Everest-D set-up block was sent
  int job_open;           // begin ... end
  int hold_terminal;      // standard output is a terminal: its bytes are counted, not written
  long held_bytes;        // bytes counted since hold_terminal_bytes
};
extern Embosser embosser;

// Restores start-up defaults: standard output, enabled, plotter mode not entered.
void reset_embosser();

// Writes text byte by byte; 0 when output is disabled.
int emit(const char *text, int length);

// A run starts: when standard output is a terminal, the bytes meant for it
// are counted instead of written, since a terminal is no embosser.
void hold_terminal_bytes();

// The run has ended: when bytes were held, one line on the error stream
// says how many and how to send them. Bytes flow to standard output again.
void report_held_bytes();

// Enters / leaves plotter mode (sends nothing outside run mode 0 or in PostScript).
void enter_plotter_mode();
void leave_plotter_mode();

// The four address bytes of a device cell.
void emit_dot_address(int row, int col);

// A pen-up move: GS and the address.
void emit_move(int row, int col);

// The printer's page end, after leaving plotter mode.
void send_form_feed();

// begin / end of an embosser job.
void begin_job();
void end_job();

// A copy of a print run starts: bytes go to `out`, the Everest-D set-up is
// sent afresh, and in printer mode the pages are collected in a dot map.
void begin_copy(FILE *out, int printer_mode);

// The copy ends: in printer mode the last page goes out (with its feed
// unless feeds are suppressed; not at all when empty) and the map is freed;
// bytes go to standard output again.
void end_copy(int printer_mode);

#endif
