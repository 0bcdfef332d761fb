// sink.h - the outputs behind the raster. Every dot, pen move, dot size,
// page feed and page sent from the dot map is offered to the registered
// sinks in rank order. An output takes an event unless an earlier sink has
// taken it; a sink that only watches (a checker, a view of every page) sees
// every event, taken or not, and takes none. New outputs register here
// without any change to the raster.
#ifndef TACTO_RASTER_SINK_H
#define TACTO_RASTER_SINK_H

// Path codes passed with every dot.
enum : int {
  PATH_DOT = 0,    // a lone dot
  PATH_START = 1,  // first point of a stroke
  PATH_ON = 2,     // a further point of a stroke
  PATH_END = 3,    // end of a stroke: a position only, never embossed
};

// Ranks of the built-in outputs; a new sink takes its place between them.
enum : int {
  RANK_POSTSCRIPT = 10,
  RANK_BITMAP = 20,
  RANK_TRACE = 30,
  RANK_DOT_MAP = 40,
  RANK_EMBOSSER = 50,
};

// A dot, or the end point of a pen move, as the sinks receive it. The
// program line that drew it is run_state.line_number of run_state.fname.
struct SinkDot {
  int grid;       // 1: a grid dot of plot0 (every dot of a Braille cell); 0: a point of plot_dot
  double wx, wy;  // world point after rotation and mirroring (a grid dot's own point)
  int dx, dy;     // grid dot, x right, y up
  int row, col;   // device cell: portrait raster, row 0 at the top
  int kind;       // path code (PATH_*); PATH_DOT for grid dots and moves
  int size;       // dot size code in force
  int dropped;    // outside the window or frame: offered as taken, with no device cell
                  // (and no grid dot for a point of plot_dot)
};

// One output. Any handler may be null. `taken` is 1 when an earlier sink
// took the event or the dot was dropped; each handler returns 1 when it
// takes the event.
struct Sink {
  const char *name;
  int rank;  // offered in rising rank
  int (*dot)(const SinkDot &dot, int taken);
  int (*move)(const SinkDot &to, int taken);
  // The dot command: *code holds the size 0-2; a device may put its own
  // code there, which becomes the size in force.
  int (*size)(int *code, int taken);
  int (*feed)(int taken);      // a page ends; the page in hand has been sent
  int (*send_map)(int taken);  // the page collected in the dot map goes out
  int (*picture)();            // 1 while it draws a picture of the sheet
};

// Adds a sink to the table. Sinks register from a static initializer.
// Returns 1.
int add_sink(const Sink *sink);

// Offer an event to the sinks; 1 when one took it.
int offer_dot(const SinkDot &dot);
int offer_move(const SinkDot &to);
int offer_size(int *code);
int offer_feed();
int offer_map();

// 1 while a sink draws a picture of the sheet (PostScript, bitmap): sizes
// are then taken as they are and the embosser sends no mode switches.
int picture_output();

#endif
