// print_test.cpp - embossing to a destination from the command line and from
// the Print item: a TCP listener, a named pipe and a CUPS queue of the
// test's own take the bytes standard output would carry, once per copy;
// each failure is one message, and the job is not reported as executed.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/print_parts.h"
#include "support/run_tacto.h"

class PrintTest : public ::testing::Test {
 protected:
  // The floor plan and its embosser stream on standard output; temporary
  // files go to a directory of the test's own.
  void SetUp() override {
    std::ifstream in(TACTO_SOURCE_DIR "/examples/house_plan.txt", std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    dir_.write("house_plan.txt", text.str());
    stream_ = dir_.run({"-r", "house_plan.txt"}).out;
    ASSERT_GT(stream_.size(), 1000u);
    mkdir(dir_.file("run").c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", dir_.file("run").c_str(), 1);
  }
  // No job leaves a temporary file, there (rmdir takes only an empty
  // directory) or beside the program.
  void TearDown() override {
    unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(rmdir(dir_.file("run").c_str()), 0);
    EXPECT_FALSE(dir_.exists("tmp.out"));
  }
  RunResult print(const std::string &dest, int copies) const {
    return dir_.run({"-r", "--print=" + dest, "--copies=" + std::to_string(copies), "house_plan.txt"});
  }
  // Every copy was sent, and standard output kept nothing.
  static void expect_sent(const RunResult &r, const std::string &where, int copies) {
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(count_of(r.err, "sent to " + where), copies) << r.err;
    EXPECT_EQ(count_of(r.err, "error "), 0) << r.err;
  }
  static void expect_failed(const RunResult &r, const std::string &message) {
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(count_of(r.err, "error "), 1) << r.err;
    EXPECT_NE(r.err.find(": " + message + "\n"), std::string::npos) << r.err;
    EXPECT_EQ(r.err.find("sent to"), std::string::npos) << r.err;
  }
  TactoDir dir_;
  std::string stream_;
};

TEST_F(PrintTest, SocketTakesTheStreamOncePerCopy) {
  Listener emb(2);
  expect_sent(print(emb.url(), 2), emb.url(), 2);
  EXPECT_EQ(emb.received(), std::vector<std::string>(2, stream_));
}

TEST_F(PrintTest, NamedPipeTakesTheStreamOncePerCopy) {
  std::string fifo = dir_.file("emb.fifo"), got;
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  // The reader stays open across the copies and stops once the run is over
  // and the pipe is drained.
  std::atomic<bool> over(false);
  std::thread reader([&] {
    int fd = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
    char buf[65536];
    for (ssize_t n; (n = read(fd, buf, sizeof buf)) > 0 || !over;)
      if (n > 0) got.append(buf, static_cast<size_t>(n));
      else usleep(5000);
    close(fd);
  });
  RunResult r = print(fifo, 2);
  over = true;
  reader.join();
  expect_sent(r, fifo, 2);
  EXPECT_TRUE(got == stream_ + stream_) << got.size() << " bytes of " << 2 * stream_.size();
}

TEST_F(PrintTest, CupsQueueTakesTheStreamOncePerCopy) {
  if (!CupsServer::installed()) GTEST_SKIP() << "cupsd is not installed (Debian: cups)";
  CupsServer cups;
  ASSERT_TRUE(cups.up()) << cups.log();
  Listener emb(2);
  ASSERT_TRUE(cups.lpadmin("-p emb -E -v " + emb.url())) << cups.log();
  expect_sent(print("cups:emb", 2), "cups:emb as job ", 2);
  EXPECT_EQ(emb.received(), std::vector<std::string>(2, stream_));
  expect_failed(print("cups:nosuch", 1), "printer [cups:nosuch] no such queue");
}

TEST_F(PrintTest, EachFailureIsOneMessageAndNothingIsExecuted) {
  std::string settings = dir_.read("tacto.sys"), closed = "socket://127.0.0.1:" + std::to_string(free_port());
  expect_failed(print(closed, 2), "printer [" + closed + "] refused the connection");
  expect_failed(print("/dev/tacto-no-embosser", 1),
                "printer [/dev/tacto-no-embosser] was not open (No such file or directory)");
  expect_failed(print("socket://host:0", 1), "printer [socket://host:0] has a bad port number (1 to 65535)");
  EXPECT_EQ(dir_.read("tacto.sys"), settings);
  // The Print item to the closed port.
  dir_.run({"-r"}, "12" + closed + "\n\n\n\n\n\ny0q");
  RunResult r = dir_.run({}, "6house_plan.txt\n0\n1\n0\ny\nq");
  EXPECT_EQ(count_of(r.err, "error "), 1) << r.err;
  EXPECT_NE(r.err.find("\"print\": printer [" + closed + "] refused the connection"), std::string::npos);
  EXPECT_EQ(r.err.find("has executed"), std::string::npos);
  EXPECT_NE(dir_.read("tacto.sys").find(closed), std::string::npos);
}

TEST_F(PrintTest, PrintItemSendsToThePortScreensDestination) {
  Listener emb(3);
  // Set, serial port: a bad port number is told and asked again; then the
  // listener, Enter for the rest, and yes.
  RunResult set = dir_.run({"-r"}, "12socket://127.0.0.1:0\n" + emb.url() + "\n\n\n\n\n\ny0q");
  EXPECT_NE(set.err.find("socket://127.0.0.1:0 has a bad port number (1 to 65535)\n"), std::string::npos);
  EXPECT_NE(set.err.find("Stop bits    = 1.0\nDestination  = " + emb.url() + "\n"), std::string::npos);
  // Print: the floor plan, plotter mode, two copies, the printer, yes.
  RunResult r = dir_.run({}, "6house_plan.txt\n0\n2\n0\ny\nq");
  EXPECT_NE(r.err.find("\ndestination: " + emb.url() + "\nouput house_plan.txt in ESA721 (Y/N)[yes] ? "),
            std::string::npos);
  EXPECT_EQ(count_of(r.err, "sent to " + emb.url()), 3);  // each copy, then after "has executed"
  EXPECT_NE(r.err.find("\nTacto [house_plan.txt] has executed\nsent to " + emb.url()), std::string::npos);
  // --print alone takes the saved destination.
  expect_sent(dir_.run({"--print", "house_plan.txt"}), emb.url(), 1);
  EXPECT_EQ(emb.received(), std::vector<std::string>(3, stream_));
}
