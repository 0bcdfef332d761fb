// ink.cpp - ink-print state and text (filled in with the PostScript writer).
#include "text/ink.h"

InkState ink;
const char *const font_table[12] = {"/Times-Roman", "/Helvetica", "/Courier", "/Symbol",
    "/Ryumin-Light-RKSJ-H", "/Ryumin-Light-RKSJ-v", "/GothicBBB-Medium-RKSJ-H", "/GothicBBB-Medium-RKSJ-V",
    "/Ryumin-Light-EUC-H", "/Ryumin-Light-EUC-v", "/GothicBBB-Medium-EUC-H", "/GothicBBB-Medium-EUC-V"};
const char *const colour_names[16] = {"black", "blue", "green", "cyan", "red", "magenta", "brown", "light gray",
    "dark gray", "light blue", "light green", "light cyan", "light red", "light magenta", "yellow", "white"};
void reset_ink() { ink = InkState(); }
int ink_active() { return 0; }
void ink_line(double, double, double, double) {}
void ink_xaxis(const double *) {}
void ink_yaxis(const double *) {}
int cmd_rgbcolor(const Command &) { return 1; }
int cmd_cmykcolor(const Command &) { return 1; }
int cmd_cap(const Command &) { return 1; }
int cmd_join(const Command &) { return 1; }
int cmd_gray(const Command &) { return 1; }
int cmd_width(const Command &) { return 1; }
int cmd_esize(const Command &) { return 1; }
int cmd_jsize(const Command &) { return 1; }
int cmd_efont(const Command &) { return 1; }
int cmd_jfont(const Command &) { return 1; }
int cmd_alphanumeric(const Command &) { return 1; }
int cmd_kanjikana(const Command &) { return 1; }
