// settings_file_test.cpp - the system file's bytes, and every load outcome.
#include "shell/settings_file.h"

#include <cstring>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "core/process.h"
#include "core/run_state.h"
#include "devices/serial.h"
#include "geometry/page.h"
#include "interp/help.h"
#include "support/test_env.h"

class SettingsFileTest : public TactoTest {
 protected:
  std::string bytes() { return read_file(sys_file.path); }
  void write_bytes(const std::string &b) {
    std::ofstream out(sys_file.path, std::ios::binary);
    out << b;
  }
};

static int32_t i32_at(const std::string &b, size_t at) {
  uint32_t u = 0;
  for (int i = 0; i < 4; i++) u |= static_cast<uint32_t>(static_cast<uint8_t>(b[at + i])) << (8 * i);
  return static_cast<int32_t>(u);
}

static float f32_at(const std::string &b, size_t at) {
  int32_t i = i32_at(b, at);
  float f;
  memcpy(&f, &i, 4);
  return f;
}

static double f64_at(const std::string &b, size_t at) {
  double d;
  memcpy(&d, b.data() + at, 8);
  return d;
}

enum : size_t { BLOCK = 10, GRID = 10 + 1508, FRAME = GRID + 48, WINDOW = FRAME + 48, PITCH = WINDOW + 48,
                SERIAL = PITCH + 16 };

TEST_F(SettingsFileTest, DefaultsAreWrittenInTheirPlaces) {
  copy_text(run_state.program_file, PROGRAM_FILE_SIZE, "tacto.txt");
  ASSERT_EQ(save_sys_file(), 1);
  std::string b = bytes();
  ASSERT_EQ(b.size(), 1794u);
  EXPECT_EQ(std::string(b.data(), 10), std::string("11.20\0\0\0\0\0", 10));
  EXPECT_EQ(i32_at(b, BLOCK + 4), 10);   // max errors
  EXPECT_EQ(i32_at(b, BLOCK + 8), 0);    // English
  EXPECT_EQ(i32_at(b, BLOCK + 12), 0);   // ESA721
  EXPECT_EQ(i32_at(b, BLOCK + 16), 3);
  EXPECT_EQ(i32_at(b, BLOCK + 28), 1);   // A4
  EXPECT_EQ(i32_at(b, BLOCK + 44), 1);   // alarm
  const int gaps[8] = {7, 6, 6, 7, 18, 15, 33, 33};
  for (int i = 0; i < 8; i++) EXPECT_EQ(i32_at(b, BLOCK + 60 + 4 * i), gaps[i]) << i;
  EXPECT_STREQ(b.c_str() + BLOCK + 567, "tacto.txt");
  EXPECT_STREQ(b.c_str() + BLOCK + 757, help_state.path);
  const int grid[12] = {0, 599, 0, 790, 0, 599, 0, 790, 0, 479, 0, 724};
  for (int i = 0; i < 12; i++) {
    EXPECT_EQ(i32_at(b, GRID + 4 * i), grid[i]) << i;
    EXPECT_EQ(i32_at(b, FRAME + 4 * i), grid[i]) << i;
  }
  const float window[12] = {-10.35f, 10.35f, -12.53f, 12.53f, -10.35f, 10.35f,
                            -12.53f, 12.53f, -8.28f,  8.28f,  -11.48f, 11.48f};
  for (int i = 0; i < 12; i++) EXPECT_EQ(f32_at(b, WINDOW + 4 * i), window[i]) << i;
  EXPECT_EQ(f64_at(b, PITCH), 0.345576);
  EXPECT_EQ(f64_at(b, PITCH + 8), 0.317215);
  EXPECT_STREQ(b.c_str() + SERIAL, "COM1");
  const int port[5] = {9600, 8, 1, 0, 0};
  for (int i = 0; i < 5; i++) EXPECT_EQ(i32_at(b, SERIAL + 96 + 4 * i), port[i]) << i;
}

TEST_F(SettingsFileTest, ARoundTripKeepsTheSettings) {
  select_paper(2, 7);
  run_state.language = 1;
  run_state.alarm = 2;
  copy_text(serial.port, PORT_NAME_SIZE, "COM3");
  serial.baud = 19200;
  ASSERT_EQ(save_sys_file(), 1);
  std::string path = sys_file.path;
  reset_all_state();
  sys_file.path = path;
  EXPECT_EQ(load_sys_file(), 1);
  EXPECT_EQ(run_state.printer, 2);
  EXPECT_EQ(run_state.paper_size, 7);
  EXPECT_EQ(run_state.language, 1);
  EXPECT_EQ(run_state.alarm, 2);
  EXPECT_STREQ(serial.port, "COM3");
  EXPECT_EQ(serial.baud, 19200);
  EXPECT_EQ(page_geom.gap_s[1], 12);  // the Everest-D's cell gaps came back
}

TEST_F(SettingsFileTest, AMissingFileKeepsTheDefaults) {
  EXPECT_EQ(load_sys_file(), 0);
  EXPECT_EQ(errors(), "!!! Dr. Orvane: I'll make your new system file (" + sys_file.path + ")\n");
}

TEST_F(SettingsFileTest, OtherVersionsAreNotRead) {
  select_paper(1, 3);
  save_sys_file();
  std::string good = bytes();
  for (const char *version : {"11.2", "11.20x", "10.00"}) {
    std::string b = good;
    memset(&b[0], 0, 10);
    memcpy(&b[0], version, strlen(version));
    write_bytes(b);
    reset_run_state();
    EXPECT_EQ(load_sys_file(), 0) << version;
    EXPECT_EQ(run_state.printer, 0) << version;
    EXPECT_EQ(errors(), "!!! tacto version is updateed to 11.20\n");
  }
  write_bytes("11.2");
  EXPECT_EQ(load_sys_file(), 0);
  EXPECT_EQ(errors(), "!!! system version could not be read\n");
}

TEST_F(SettingsFileTest, AShortFileKeepsWhatWasRead) {
  select_paper(0, 0);  // B5: grid 479 x 724
  run_state.language = 1;
  save_sys_file();
  std::string b = bytes();
  write_bytes(b.substr(0, WINDOW + 20));  // cut inside the window record
  reset_all_state();
  sys_file.path = temp_path("tacto.sys");
  EXPECT_EQ(load_sys_file(), 0);
  EXPECT_EQ(errors(), "!!! Dr. Orvane: I'll remake your system file");
  EXPECT_EQ(run_state.language, 1);          // the block was read
  EXPECT_EQ(sys_file.grid[0].x1, 479);       // so were the grid and frame
  EXPECT_EQ(sys_file.frame[0].y1, 724);
  EXPECT_FLOAT_EQ(sys_file.window[0].x1, 10.35f);  // the window kept its default
}

TEST_F(SettingsFileTest, AFailedSaveIsReportedAndLeavesNoTruncatedFile) {
  save_sys_file();
  std::string before = bytes();
  sys_file.path = temp_path("missing/dir/tacto.sys");
  EXPECT_EQ(save_sys_file(), 0);
  EXPECT_NE(errors().find("\n!!! Dr. Orvane: I could not save your system file (" + sys_file.path + ")."),
            std::string::npos);
  sys_file.path = temp_path("tacto.sys");
  EXPECT_EQ(bytes(), before);
}

// The file is replaced only when its bytes would change (or it is missing):
// an unchanged save keeps the very file, a changed or damaged one is renamed over.
TEST_F(SettingsFileTest, OnlyChangedBytesAreWritten) {
  auto inode = [&]() {
    struct stat st;
    return stat(sys_file.path.c_str(), &st) == 0 ? static_cast<long>(st.st_ino) : -1L;
  };
  ASSERT_EQ(save_sys_file(), 1);
  long first = inode();
  ASSERT_NE(first, -1);
  std::string saved = bytes();
  ASSERT_EQ(save_sys_file(), 1);
  EXPECT_EQ(inode(), first);
  EXPECT_EQ(bytes(), saved);

  run_state.alarm = 2;
  ASSERT_EQ(save_sys_file(), 1);
  EXPECT_NE(inode(), first);
  EXPECT_EQ(i32_at(bytes(), BLOCK + 44), 2);

  write_bytes(bytes().substr(0, 100));  // damaged: rewritten whole
  ASSERT_EQ(save_sys_file(), 1);
  EXPECT_EQ(bytes().size(), 1794u);
  unlink(sys_file.path.c_str());  // missing: written
  ASSERT_EQ(save_sys_file(), 1);
  EXPECT_EQ(bytes().size(), 1794u);
  EXPECT_EQ(errors(), "");
}
