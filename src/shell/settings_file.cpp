// settings_file.cpp - reading and writing the system file, record by record,
// little-endian, with the system's own messages for every outcome.
#include "shell/settings_file.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

#include "core/diag.h"
#include "core/process.h"
#include "core/run_state.h"
#include "devices/serial.h"
#include "interp/help.h"

static_assert(static_cast<int>(HELP_PATH_SIZE) == static_cast<int>(SYS_HELP_PATH_SIZE),
              "the help path fills the rest of the setup block");

SysFile sys_file;

// Record sizes after the version: block, grid, frame, window, pitch, serial.
enum : int { GRID_BYTES = 48, PITCH_BYTES = 16, SERIAL_BYTES = 116 };

static void put_i32(uint8_t *p, int32_t v) {
  uint32_t u = static_cast<uint32_t>(v);
  for (int i = 0; i < 4; i++) p[i] = static_cast<uint8_t>(u >> (8 * i));
}

static int32_t get_i32(const uint8_t *p) {
  uint32_t u = 0;
  for (int i = 0; i < 4; i++) u |= static_cast<uint32_t>(p[i]) << (8 * i);
  return static_cast<int32_t>(u);
}

static void put_f32(uint8_t *p, float v) {
  uint32_t u;
  memcpy(&u, &v, 4);
  put_i32(p, static_cast<int32_t>(u));
}

static float get_f32(const uint8_t *p) {
  uint32_t u = static_cast<uint32_t>(get_i32(p));
  float v;
  memcpy(&v, &u, 4);
  return v;
}

static void put_f64(uint8_t *p, double v) {
  uint64_t u;
  memcpy(&u, &v, 8);
  for (int i = 0; i < 8; i++) p[i] = static_cast<uint8_t>(u >> (8 * i));
}

static double get_f64(const uint8_t *p) {
  uint64_t u = 0;
  for (int i = 0; i < 8; i++) u |= static_cast<uint64_t>(p[i]) << (8 * i);
  double v;
  memcpy(&v, &u, 8);
  return v;
}

// The grid, frame and window presets of a paper row.
static void preset_from_paper(int set, int paper) {
  const PaperRow &row = paper_table[paper];
  sys_file.grid[set] = sys_file.frame[set] = IntRect{0, row.x1, 0, row.y1};
  sys_file.window[set] = FloatRect{static_cast<float>(row.window[0]), static_cast<float>(row.window[1]),
                                   static_cast<float>(row.window[2]), static_cast<float>(row.window[3])};
}

static void reset_sys_file() {
  std::string path = sys_file.path;
  sys_file = SysFile();
  sys_file.path = path;
  memset(sys_file.block, 0, sizeof sys_file.block);
  preset_from_paper(0, 1);
  preset_from_paper(1, 1);
  preset_from_paper(2, 0);
  sys_file.pitch[0] = printer_table[0].pitch_h;
  sys_file.pitch[1] = printer_table[0].pitch_v;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_sys_file);

// The setup block from the run state (named fields over the kept image).
static void build_block(uint8_t *b) {
  memcpy(b, sys_file.block, SYS_BLOCK_SIZE);
  put_i32(b + SYS_MAX_ERRORS, run_state.max_errors);
  put_i32(b + SYS_LANGUAGE, run_state.language);
  put_i32(b + SYS_PRINTER, run_state.printer);
  put_i32(b + SYS_OUTPUT_TARGET, run_state.output_target);
  put_i32(b + SYS_PAPER_SIZE, run_state.paper_size);
  put_i32(b + SYS_ALARM, run_state.alarm);
  const PageGeom &g = page_geom;
  const int gaps[8] = {g.gap_h[0], g.gap_h[1], g.gap_v[0], g.gap_v[1],
                       g.gap_s[0], g.gap_s[1], g.gap_l[0], g.gap_l[1]};
  for (int i = 0; i < 8; i++) put_i32(b + SYS_DOT_GAPS + 4 * i, gaps[i]);
  memset(b + SYS_PROGRAM_FILE, 0, PROGRAM_FILE_SIZE);
  memcpy(b + SYS_PROGRAM_FILE, run_state.program_file, strnlen(run_state.program_file, PROGRAM_FILE_SIZE - 1));
  memset(b + SYS_HELP_PATH, 0, SYS_HELP_PATH_SIZE);
  memcpy(b + SYS_HELP_PATH, help_state.path, strnlen(help_state.path, SYS_HELP_PATH_SIZE - 1));
}

// The run state from a setup block read from the file.
static void apply_block(const uint8_t *b) {
  memcpy(sys_file.block, b, SYS_BLOCK_SIZE);
  run_state.max_errors = get_i32(b + SYS_MAX_ERRORS);
  run_state.language = get_i32(b + SYS_LANGUAGE);
  run_state.printer = get_i32(b + SYS_PRINTER);
  run_state.output_target = get_i32(b + SYS_OUTPUT_TARGET);
  run_state.paper_size = get_i32(b + SYS_PAPER_SIZE);
  run_state.alarm = get_i32(b + SYS_ALARM);
  PageGeom &g = page_geom;
  int *gaps[8] = {&g.gap_h[0], &g.gap_h[1], &g.gap_v[0], &g.gap_v[1],
                  &g.gap_s[0], &g.gap_s[1], &g.gap_l[0], &g.gap_l[1]};
  for (int i = 0; i < 8; i++) *gaps[i] = get_i32(b + SYS_DOT_GAPS + 4 * i);
  char name[PROGRAM_FILE_SIZE];
  memcpy(name, b + SYS_PROGRAM_FILE, PROGRAM_FILE_SIZE - 1);
  name[PROGRAM_FILE_SIZE - 1] = '\0';
  copy_text(run_state.program_file, PROGRAM_FILE_SIZE, name);
}

static void put_rects(uint8_t *b, const IntRect *r) {
  for (int i = 0; i < 3; i++) {
    put_i32(b + 16 * i, r[i].x0);
    put_i32(b + 16 * i + 4, r[i].x1);
    put_i32(b + 16 * i + 8, r[i].y0);
    put_i32(b + 16 * i + 12, r[i].y1);
  }
}

static void get_rects(const uint8_t *b, IntRect *r) {
  for (int i = 0; i < 3; i++)
    r[i] = IntRect{get_i32(b + 16 * i), get_i32(b + 16 * i + 4), get_i32(b + 16 * i + 8), get_i32(b + 16 * i + 12)};
}

static void put_windows(uint8_t *b, const FloatRect *w) {
  for (int i = 0; i < 3; i++) {
    put_f32(b + 16 * i, w[i].x0);
    put_f32(b + 16 * i + 4, w[i].x1);
    put_f32(b + 16 * i + 8, w[i].y0);
    put_f32(b + 16 * i + 12, w[i].y1);
  }
}

static void get_windows(const uint8_t *b, FloatRect *w) {
  for (int i = 0; i < 3; i++)
    w[i] = FloatRect{get_f32(b + 16 * i), get_f32(b + 16 * i + 4), get_f32(b + 16 * i + 8), get_f32(b + 16 * i + 12)};
}

static void put_serial(uint8_t *b) {
  memset(b, 0, PORT_NAME_SIZE);
  memcpy(b, serial.port, strnlen(serial.port, PORT_NAME_SIZE - 1));
  const int values[5] = {serial.baud, serial.data_bits, serial.xon, serial.parity, serial.stop};
  for (int i = 0; i < 5; i++) put_i32(b + PORT_NAME_SIZE + 4 * i, values[i]);
}

static void get_serial(const uint8_t *b) {
  char name[PORT_NAME_SIZE];
  memcpy(name, b, PORT_NAME_SIZE - 1);
  name[PORT_NAME_SIZE - 1] = '\0';
  copy_text(serial.port, PORT_NAME_SIZE, name);
  int *values[5] = {&serial.baud, &serial.data_bits, &serial.xon, &serial.parity, &serial.stop};
  for (int i = 0; i < 5; i++) *values[i] = get_i32(b + PORT_NAME_SIZE + 4 * i);
}

int load_sys_file() {
  FILE *f = fopen(sys_file.path.c_str(), "rb");
  if (f == nullptr) {
    beep(880, 200);
    fprintf(stderr, "!!! Dr. Orvane: I'll make your new system file (%s)\n", sys_file.path.c_str());
    return 0;
  }
  char version[SYS_VERSION_SIZE + 1] = {0};
  if (fread(version, 1, SYS_VERSION_SIZE, f) != SYS_VERSION_SIZE) {
    beep(880, 200);
    fputs("!!! system version could not be read\n", stderr);
    fclose(f);
    return 0;
  }
  if (strcmp(version, TACTO_VERSION) != 0) {
    beep(880, 200);
    fprintf(stderr, "!!! tacto version is updateed to %5.5s\n", TACTO_VERSION);
    fclose(f);
    return 0;
  }
  static const int sizes[6] = {SYS_BLOCK_SIZE, GRID_BYTES, GRID_BYTES, GRID_BYTES, PITCH_BYTES, SERIAL_BYTES};
  uint8_t buf[SYS_BLOCK_SIZE];
  for (int rec = 0; rec < 6; rec++) {
    if (fread(buf, 1, sizes[rec], f) != static_cast<size_t>(sizes[rec])) {
      beep(880, 200);
      fputs("!!! Dr. Orvane: I'll remake your system file", stderr);
      fclose(f);
      return 0;
    }
    switch (rec) {
      case 0: apply_block(buf); break;
      case 1: get_rects(buf, sys_file.grid); break;
      case 2: get_rects(buf, sys_file.frame); break;
      case 3: get_windows(buf, sys_file.window); break;
      case 4:
        sys_file.pitch[0] = get_f64(buf);
        sys_file.pitch[1] = get_f64(buf + 8);
        break;
      case 5: get_serial(buf); break;
    }
  }
  fclose(f);
  // A whole file: portrait, with the selected paper's preset current.
  run_state.orientation = 1;
  page_geom.portrait = 1;
  int preset = run_state.paper_size == 0 ? 2 : 1;
  sys_file.grid[0] = sys_file.grid[preset];
  sys_file.frame[0] = sys_file.grid[preset];
  sys_file.window[0] = sys_file.window[preset];
  return 1;
}

// 1 when the file at path holds exactly these bytes.
static int file_holds(const char *path, const uint8_t *bytes, size_t size) {
  FILE *f = fopen(path, "rb");
  if (f == nullptr) return 0;
  uint8_t old[SYS_FILE_SIZE + 1];
  size_t n = fread(old, 1, sizeof old, f);
  fclose(f);
  return n == size && memcmp(old, bytes, size) == 0;
}

int save_sys_file() {
  const char *path = sys_file.path.c_str();
  // The current sets are the geometry in force.
  sys_file.grid[0] = page_geom.p;
  sys_file.frame[0] = page_geom.f;
  sys_file.window[0] = page_geom.w;
  sys_file.pitch[0] = page_geom.pitch_h;
  sys_file.pitch[1] = page_geom.pitch_v;

  // The whole file, record after record.
  static_assert(SYS_VERSION_SIZE + SYS_BLOCK_SIZE + 3 * GRID_BYTES + PITCH_BYTES + SERIAL_BYTES == SYS_FILE_SIZE,
                "the records fill the file");
  uint8_t image[SYS_FILE_SIZE] = {0};
  uint8_t *version = image, *block = version + SYS_VERSION_SIZE, *grid = block + SYS_BLOCK_SIZE;
  uint8_t *frame = grid + GRID_BYTES, *window = frame + GRID_BYTES, *pitch = window + GRID_BYTES;
  uint8_t *port = pitch + PITCH_BYTES;
  memcpy(version, TACTO_VERSION, strlen(TACTO_VERSION));
  build_block(block);
  put_rects(grid, sys_file.grid);
  put_rects(frame, sys_file.frame);
  put_windows(window, sys_file.window);
  put_f64(pitch, sys_file.pitch[0]);
  put_f64(pitch + 8, sys_file.pitch[1]);
  put_serial(port);

  // A file that already holds these bytes is left alone.
  if (file_holds(path, image, sizeof image)) return 1;

  std::string temp = sys_file.path + ".new";
  FILE *f = fopen(temp.c_str(), "wb");
  if (f == nullptr) {
    beep(220, 150);
    fprintf(stderr, "\n!!! Dr. Orvane: I could not save your system file (%s).", path);
    return 0;
  }
  struct Record {
    const uint8_t *bytes;
    size_t size;
    const char *failure;
  };
  const Record records[7] = {
      {version, SYS_VERSION_SIZE, "!!! the system version could not be written\n"},
      {block, SYS_BLOCK_SIZE, "!!! Dr. Orvane: I could not write your system file"},
      {grid, GRID_BYTES, "!!! Dr. Orvane: I could not update your grid file."},
      {frame, GRID_BYTES, "!!! Dr. Orvane: I could not update your frame file."},
      {window, GRID_BYTES, "!!! Dr. Orvane: I could not update your window file."},
      {pitch, PITCH_BYTES, "!!! Dr. Orvane: I could not update your grid parameter."},
      {port, SERIAL_BYTES, "!!! Dr. Orvane: I could not update your Serial Port file."},
  };
  for (const Record &r : records) {
    if (fwrite(r.bytes, 1, r.size, f) != r.size || fflush(f) != 0) {
      fputs(r.failure, stderr);
      fclose(f);
      unlink(temp.c_str());
      return 0;
    }
  }
  // Only a complete file replaces the old one.
  if (fsync(fileno(f)) != 0 || fclose(f) != 0 || rename(temp.c_str(), path) != 0) {
    fprintf(stderr, "\n!!! Dr. Orvane: I could not save your system file (%s).", path);
    unlink(temp.c_str());
    return 0;
  }
  return 1;
}
