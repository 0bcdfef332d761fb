// menus_test.cpp - the menu's screens driven through standard input: print
// jobs to an exchange file, a file and the port, the serial port screen,
// the setup menu and the directory list.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/run_tacto.h"

static int32_t i32_at(const std::string &b, size_t at) {
  uint32_t u = 0;
  for (int i = 0; i < 4; i++) u |= static_cast<uint32_t>(static_cast<uint8_t>(b[at + i])) << (8 * i);
  return static_cast<int32_t>(u);
}
enum : size_t { PRINTER_AT = 10 + 12, PAPER_AT = 10 + 28, PORT_AT = 10 + 1508 + 3 * 48 + 16 };

// The dots an ESA721 stream addresses (without the pen moves), as "row,col".
static std::string addressed_dots(const std::string &bytes) {
  std::string dots;
  for (size_t i = 0; i + 3 < bytes.size(); i++) {
    unsigned char a = bytes[i], b = bytes[i + 1], c = bytes[i + 2], d = bytes[i + 3];
    if (a >= 32 && a < 64 && b >= 96 && b < 128 && c >= 32 && c < 64 && d >= 64 && d < 96 &&
        (i == 0 || static_cast<unsigned char>(bytes[i - 1]) != 29)) {
      int col = (a - 32) * 32 + (b - 96), row = (c - 32) * 32 + (d - 64);
      dots += std::to_string(row) + "," + std::to_string(col) + " ";
      i += 3;
    }
  }
  return dots;
}

TEST(Menus, AnExchangeFileHoldsConvertedLinesAndNothingElse) {
  TactoDir dir;
  dir.write("tacto.txt", "line 0 0 1 1 1\nff\npostscript x.ps\nversion\nbrl 0 0 AB\n");
  // Print: the program, plotter mode, one copy, an exchange file, Enter, yes.
  RunResult r = dir.run({"-r"}, "6\n0\n1\n2\n\ny 2version\nbye\nq");
  EXPECT_EQ(dir.read("tacto.tgx"), "line 299.500 395.000 328.437 426.524 1.000\nbrl 299.500 395.000 AB\n");
  EXPECT_FALSE(dir.exists("x.ps"));
  EXPECT_NE(r.err.find("convert tacto.txt to tacto.tgx (Y/N)[yes] ? "), std::string::npos);
  EXPECT_NE(r.err.find("\nTacto [tacto.txt] has executed"), std::string::npos);
  // Back in the menu the console runs in the normal mode again.
  EXPECT_NE(r.err.find("\nconsole 1: version //0 11.20\n"), std::string::npos);
}

TEST(Menus, PrinterModeSendsTheSamePageAsPlotterMode) {
  TactoDir dir;
  dir.write("tacto.txt", "line 0 0 1 1 1\nline 1 1 1 2 1\n");
  dir.run({"-r"}, "6\n0\n1\n1\nplotter\ny\nq");
  dir.run({"-r"}, "6\n1\n1\n1\nprinter\ny\nq");
  std::string plotter = dir.read("plotter.out"), printer = dir.read("printer.out");
  ASSERT_FALSE(plotter.empty());
  EXPECT_EQ(printer.substr(0, 3), "\x1b\x1bG");
  EXPECT_EQ(printer.substr(printer.size() - 2), "\r\f");  // one page, one feed
  EXPECT_EQ(addressed_dots(plotter).size(), addressed_dots(printer).size());
  EXPECT_NE(printer.find("\x1b\x1b" "D0"), std::string::npos);
}

TEST(Menus, CopiesGoToThePortOneAfterAnother) {
  TactoDir dir;
  dir.write("tacto.txt", "plot 0 0 0\nff\n");
  std::string port = dir.file("port.bin");
  // Set, serial port: the port, then Enter for the rest, and yes.
  dir.run({"-r"}, "12" + port + "\n\n\n\n\n\ny0q");
  EXPECT_EQ(dir.read("tacto.sys").substr(PORT_AT, port.size()), port);
  // Refused copy counts are asked again; two copies go to the port.
  RunResult r = dir.run({}, "6\n0\n0\n100\n2\n\n\nq");
  EXPECT_NE(r.err.find("ouput tacto.txt in ESA721 (Y/N)[yes] ? "), std::string::npos);
  EXPECT_EQ(count_of(r.err, "How many copies (1-99)"), 3);
  std::string sent = dir.read("port.bin");
  EXPECT_EQ(count_of(sent, "\x1b\x1bG"), 2);
  EXPECT_EQ(count_of(sent, "\f"), 2);
}

TEST(Menus, APeriodAtAnyPromptPrintsNothing) {
  TactoDir dir;
  dir.write("tacto.txt", "plot 0 0 0\n");
  RunResult r = dir.run({"-r"}, "6\n1\n.\nq");
  EXPECT_EQ(r.err.find("copy 1"), std::string::npos);
  RunResult missing = dir.run({"-r"}, "6nothere.txt\n\nq");
  EXPECT_NE(missing.err.find("\"program\": Tacto [nothere.txt] was not open"), std::string::npos);
}

TEST(Menus, SerialPortScreen) {
  TactoDir dir;
  // COM3 from its number, 1000 asked again, stop bits 1.5.
  RunResult r = dir.run({"-r"}, "123\n1000\n19200\n7\n0\n2\n1.5\ny0q");
  EXPECT_NE(r.err.find("Port Name    = COM3\nBaudRate     = 19200\nbit length   = 7\n"
                       "Flow control = None\nParity       = Even\nStop bits    = 1.5\n"),
            std::string::npos);
  std::string b = dir.read("tacto.sys");
  EXPECT_EQ(b.substr(PORT_AT, 5), std::string("COM3\0", 5));
  const int want[5] = {19200, 7, 0, 2, 1};
  for (int i = 0; i < 5; i++) EXPECT_EQ(i32_at(b, PORT_AT + 96 + 4 * i), want[i]) << i;
  // "com2" and a rate by its index, but no at the end: nothing changes.
  RunResult no = dir.run({}, "12com2\n6\n\n\n\n\nn0q");
  EXPECT_NE(no.err.find("Port Name    = COM2\nBaudRate     = 9600\n"), std::string::npos);
  EXPECT_EQ(dir.read("tacto.sys").substr(PORT_AT, 5), std::string("COM3\0", 5));
}

TEST(Menus, SetupChoosesPrinterAndPaperAndListShowsFiles) {
  TactoDir dir;
  dir.write("notes.txt", "x");
  RunResult r = dir.run({"-r"}, "112\n5\n0l q");
  std::string b = dir.read("tacto.sys");
  EXPECT_EQ(i32_at(b, PRINTER_AT), 2);
  EXPECT_EQ(i32_at(b, PAPER_AT), 5);
  EXPECT_NE(r.err.find("notes.txt"), std::string::npos);
  EXPECT_NE(r.err.find("tacto.hlp"), std::string::npos);
}
