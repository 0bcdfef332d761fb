// nested.h - programs run from within a program: paste, rpaste and include
// run another program with the caller's geometry, rotation, mirroring and
// reading position saved on the window stack, and restore them afterwards.
#ifndef TACTO_INTERP_NESTED_H
#define TACTO_INTERP_NESTED_H

// The paste and rpaste commands; include is paste at 0 0 with scale 1 1.
int paste(const char *file, double ox, double oy, double bias_x, double bias_y);
int rpaste(const char *file, double ox, double oy, double bias_x, double bias_y, double angle);

#endif
