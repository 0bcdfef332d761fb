// transform.h - world points to grid dots and device cells; rotation about a
// centre, mirroring for embossing from the back, and the angle unit.
#ifndef TACTO_GEOMETRY_TRANSFORM_H
#define TACTO_GEOMETRY_TRANSFORM_H

// The program's own pi and degree factor (3.141592 / 180), kept as they are.
#define TACTO_PI 3.141592
#define TACTO_DEGREE 0.01745328888888889

struct Transform {
  int rotate_on;       // rotation applied to plotted points
  int rotate_saved;    // rotate_on while rotation is suspended
  float rotate_cx, rotate_cy;
  float rotate_angle;  // radians, counter-clockwise
  int mirror_on;
  float mirror_shift;  // mm
  int degree_mode;     // 1 degrees (start-up), 0 radians
};
extern Transform xform;

// A point on the grid and in the device raster.
struct DotPos {
  int dx, dy;    // grid dots, x right, y up
  int row, col;  // device cell: portrait raster, row 0 at the top
};

// Exactly 0 for values strictly between -0.00001 and 0.00001 (the program's
// way of cleaning up cosines and sines of right angles).
inline double zero_tiny(double v) { return (v > -0.00001 && v < 0.00001) ? 0.0 : v; }

// Angle in the current unit to radians (factor 0.01745328888888889 in degrees).
double to_radian(double a);

// The direction of (dx, dy) at distance r > 0, found twice on purpose: from
// the cosine for use with cosines, from the sine for use with sines, so that
// each coordinate comes from the function well conditioned for it.
void direction_angles(double dx, double dy, double r, double *from_cos, double *from_sin);

// Rotation command: flag 1 on, 2 suspend, 3 resume, 0 off; else an error.
int set_rotate(int flag, double cx, double cy, double angle);

// Rotates (x, y) in place when rotation is on; 1 when on, 0 when off.
int rotate_point(double *x, double *y);

// Mirror command: flag 0 or 1 and a shift in mm; 0 after "illegal flag".
int set_mirror(int flag, double shift_mm);

// Mirrors x about the window's centre line (ESA721 only). Returns 1.
int mirror_point(double *x);

// Rotation then mirroring, as every plotted point receives them.
void transform_point(double *x, double *y);

// Device cell of a grid dot in the current orientation.
void dot_to_device(int dx, int dy, int *row, int *col);

// The plot mapping: window test, rounding, frame test. 0 when not drawn.
int map_plot(double wx, double wy, DotPos *pos);

// The move mapping: window test, rounding, grid test. 0 when outside.
int map_move(double wx, double wy, DotPos *pos);

// Moves a world point down and left onto the dot lattice; 0 outside the window.
int snap_to_dot(double *wx, double *wy);

// Grid dot of a world value, rounded, without any test (echoes).
int world_to_dot_x(double wx);
int world_to_dot_y(double wy);

// Grid position of a world value, unrounded (converted echoes).
double world_to_grid_x(double wx);
double world_to_grid_y(double wy);

// World value of a grid dot.
double dot_to_world_x(int dx);
double dot_to_world_y(int dy);

#endif
