// legibility.h - what makes a tactile figure hard to read, found from the
// dots a run draws, without producing output: Braille labels crowded by
// other figures, figures running close beside each other, dots dropped
// outside the window or frame, and pitches finer than the embosser's dots.
//
// A figure is everything one program line draws: two commands on two lines
// are two figures, and a line run again in a loop stays one figure. Labels
// are the dots of Braille cells. Distances are between dot centres on the
// sheet, in mm; only dots on the same page are compared.
#ifndef TACTO_DEVICES_LEGIBILITY_H
#define TACTO_DEVICES_LEGIBILITY_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

// Clear space asked around labels, and between figures, in mm.
constexpr double LEGIBILITY_LABEL_MM = 3;
constexpr double LEGIBILITY_LINE_MM = 2;
// How long two figures may run that close before they merge under the finger.
constexpr double LEGIBILITY_RUN_MM = 5;

// A point on the sheet (mm from its left and top edges as it lies) and the
// world point it was drawn for.
struct Place {
  double x_mm, y_mm;
  double wx, wy;
};

struct LegibilityFigure {
  std::string file, command;  // where the line is, and its command word
  int line;
  long dropped;               // dots outside the window or frame
  Place first_dropped;
  int small_pitch;            // a pitch below the dot spacing was drawn
  double pitch_mm;            // the finest of them
  double spacing_mm;          // the dot spacing it was below
  Place pitch_at;
};

struct LegibilityDot {
  Place at;
  int figure;
  int label;  // a dot of a Braille cell
};

enum : int { LEGIBILITY_LABEL, LEGIBILITY_RUN };

struct LegibilityFinding {
  int kind;                // LEGIBILITY_LABEL or LEGIBILITY_RUN
  int figure, other;       // reported on figure, naming the other
  double distance_mm;      // the closest the two come
  double length_mm;        // a run's length
  Place at;
};

struct Legibility {
  double label_mm, line_mm;  // a distance not above 0 turns its check off
  std::vector<LegibilityFigure> figures;
  std::unordered_map<std::string, int> figure_of;  // "file:line" to its figure
  int last_figure;                         // the figure asked for last (-1 none)
  std::vector<LegibilityDot> dots;         // the page in hand
  std::unordered_set<uint64_t> seen;       // figure and position of each of them
  std::vector<LegibilityFinding> findings;
};

// Starts a check with the two distances (LEGIBILITY_LABEL_MM, LEGIBILITY_LINE_MM
// by default).
void legibility_begin(Legibility &c, double label_mm, double line_mm);

// The figure of a program line, added on first sight; its number for the calls below.
int legibility_figure(Legibility &c, const char *file, int line, const char *command);

// A dot drawn by a figure; label marks a dot of a Braille cell. A dot the
// figure already has at the same place on this page is not counted twice.
void legibility_dot(Legibility &c, int figure, const Place &at, int label);

// A dot of a figure dropped outside the window or frame.
void legibility_dropped(Legibility &c, int figure, const Place &at);

// A figure drawn at a pitch, with the embosser's dot spacing; a pitch below
// the spacing is kept (the finest per figure).
void legibility_pitch(Legibility &c, int figure, double pitch_mm, double spacing_mm, const Place &at);

// Checks the page in hand and forgets its dots (at every page feed).
void legibility_end_page(Legibility &c);

// Checks the last page, reports every problem as a warning on its figure's
// program line, writes the summary line to `out` and returns the number of
// problems (the caller exits 3 when it is not 0).
int legibility_report(Legibility &c, FILE *out);

#endif
