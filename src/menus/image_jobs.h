// image_jobs.h - the menu's two image jobs: a whole program run into a
// PostScript file (tactile or ink print) or into a bitmap of the sheet.
#ifndef TACTO_MENUS_IMAGE_JOBS_H
#define TACTO_MENUS_IMAGE_JOBS_H

// The answers the screens remember for the whole run.
struct ImageJobs {
  int kind;          // the Image item's default: 0 PostScript, 1 bitmap (0)
  int ink_print;     // 0 dot print, 1 ink print (0)
  int printer_mode;  // 0 plotter mode, 1 printer mode: dots collected in the dot map (0)
};
extern ImageJobs image_jobs;

// "Generate a PostScript file": asks for the program, the PostScript file,
// dot or ink print and, for dot print, the mode, then makes the file.
// Returns 1 to the menu (also after a refusal or when the user goes back).
int postscript_job();

// "Generate a Bitmap file": asks for the program and the bitmap file, then
// makes the file. Returns 1 to the menu.
int bitmap_job();

// The menu's Image item: asks PostScript or bitmap (Enter keeps the last
// choice) and runs that job. Returns 1 to the menu.
int image_item();

// Runs a program into a PostScript file with the menu job's header and
// trailer; printer_mode collects each page in the dot map first. 1 when the
// file was made, 0 after a reported failure to open either file.
int make_postscript(const char *program, const char *output, int ink_print, int printer_mode);

// Runs a program into a bitmap file. 1 when the file was made, 0 after a
// reported failure.
int make_bitmap(const char *program, const char *output);

#endif
