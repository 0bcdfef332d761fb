// settings_file.h - the system file beside the program: 1794 bytes holding
// the version "11.20", the setup block, the stored grid, frame and window
// sets, the dot pitch and the serial port, read at start and saved at the end.
#ifndef TACTO_SHELL_SETTINGS_FILE_H
#define TACTO_SHELL_SETTINGS_FILE_H

#include <cstdint>
#include <string>

#include "geometry/page.h"

enum : int {
  SYS_VERSION_SIZE = 10,
  SYS_BLOCK_SIZE = 1508,
  SYS_FILE_SIZE = 1794,
  // Named fields of the setup block, by byte offset.
  SYS_MAX_ERRORS = 4,
  SYS_LANGUAGE = 8,
  SYS_PRINTER = 12,
  SYS_OUTPUT_TARGET = 16,
  SYS_PAPER_SIZE = 28,
  SYS_ALARM = 44,
  SYS_DOT_GAPS = 60,     // eight integers: h, v, s, l, landscape then portrait each
  SYS_PROGRAM_FILE = 567,
  SYS_HELP_PATH = 757,
  SYS_HELP_PATH_SIZE = SYS_BLOCK_SIZE - SYS_HELP_PATH,
};

// The stored sets: current, then the presets for A4 and B5 paper.
struct SysFile {
  std::string path;                 // where the file lives
  uint8_t block[SYS_BLOCK_SIZE];    // the setup block as last read or built
  IntRect grid[3], frame[3];
  FloatRect window[3];
  double pitch[2];                  // horizontal, vertical
};
extern SysFile sys_file;

// Reads the file at sys_file.path. Returns 1 when it was read whole;
// reports every other outcome on the error stream and keeps the defaults
// of what was not read.
int load_sys_file();

// Writes the file (a temporary file, then renamed over the old one) unless
// it already holds exactly these bytes. Returns 1 on success, 0 after a
// reported failure.
int save_sys_file();

#endif
