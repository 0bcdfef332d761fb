// destination_test.cpp - port names read as destinations, and jobs delivered
// to real parts the tests start: a TCP listener, named pipes, a terminal, a
// plain file and a CUPS scheduler of their own.
#include "devices/destination.h"

#include <cups/cups.h>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "core/run_state.h"
#include "support/print_parts.h"
#include "support/test_env.h"

// An embosser-like stream: plotter mode, then every byte value many times.
static std::string job_bytes(size_t size) {
  std::string s(size, '\0');
  for (size_t i = 0; i < size; i++) s[i] = static_cast<char>((i * 7 + i / 256) & 0xff);
  return s.replace(0, 4, "\x1b\x1bG\r");
}

class DestinationTest : public TactoTest {
 protected:
  Destination dest(const std::string &name) {
    Destination d;
    parse_destination(name.c_str(), serial, &d);
    return d;
  }
  // The last delivery reported exactly one error, ending with `text` (a
  // prefix of the reason when `whole` is false); the count starts again.
  void expect_one_error(const std::string &text, bool whole = true) {
    std::string shown = errors();
    EXPECT_EQ(run_state.error_count, 1) << shown;
    EXPECT_EQ(count_of(shown, "error "), 1) << shown;
    size_t at = shown.find(": " + text), end = at + text.size() + 2;
    EXPECT_TRUE(at != std::string::npos && (!whole || end == shown.size() || shown[end] == '\n')) << shown;
    run_state.error_count = 0;
  }
  void expect_all_taken(const std::vector<std::string> &got, size_t copies, const std::string &job) {
    ASSERT_EQ(got.size(), copies);
    for (const std::string &copy : got) EXPECT_TRUE(copy == job) << copy.size() << " of " << job.size() << " bytes";
    EXPECT_EQ(run_state.error_count, 0) << errors();
  }
};

TEST_F(DestinationTest, PortNamesReadAsDestinations) {
  struct Case {
    const char *name;
    int kind;
    const char *label, *target;
  } cases[] = {
      {"COM1", DEST_SERIAL, "/dev/ttyS0", "/dev/ttyS0"},
      {"com12", DEST_SERIAL, "/dev/ttyS11", "/dev/ttyS11"},
      {"3", DEST_SERIAL, "/dev/ttyS2", "/dev/ttyS2"},
      {"/dev/usb/lp0", DEST_PATH, "/dev/usb/lp0", "/dev/usb/lp0"},
      {"ttyUSB0", DEST_PATH, "/dev/ttyUSB0", "/dev/ttyUSB0"},
      {"./plan.bin", DEST_PATH, "./plan.bin", "./plan.bin"},
      {"socket://emb.school.org", DEST_SOCKET, "socket://emb.school.org:9100", "emb.school.org"},
      {"SOCKET://10.0.0.5:9101/", DEST_SOCKET, "socket://10.0.0.5:9101", "10.0.0.5"},
      {"socket://[::1]:631", DEST_SOCKET, "socket://[::1]:631", "::1"},
      {"cups:emb", DEST_CUPS, "cups:emb", "emb"},
      {"cups:", DEST_CUPS, "cups:", ""},
  };
  for (const Case &c : cases) {
    Destination d = dest(c.name);
    EXPECT_EQ(d.problem, nullptr) << c.name;
    EXPECT_EQ(d.kind, c.kind) << c.name;
    EXPECT_STREQ(d.label, c.label) << c.name;
    EXPECT_STREQ(d.target, c.target) << c.name;
  }
  EXPECT_EQ(dest("socket://h").port, 9100);
  EXPECT_EQ(dest("socket://h:65535").port, 65535);
}

TEST_F(DestinationTest, MalformedNamesAreRefusedAndTheirJobsReported) {
  struct Case {
    std::string name;
    const char *problem;
  } cases[] = {
      {"", "has no name"},
      {std::string(96, 'a'), "is longer than 95 characters"},
      {"COM0", "is no serial port (COM1 to COM99)"},
      {"COM100", "is no serial port (COM1 to COM99)"},
      {"socket://", "has no host"},
      {"socket://:9100", "has no host"},
      {"socket://[::1", "has a bad host"},
      {"socket://h:0", "has a bad port number (1 to 65535)"},
      {"socket://h:65536", "has a bad port number (1 to 65535)"},
      {"socket://h:91x", "has a bad port number (1 to 65535)"},
      {"cups:my queue", "has a bad queue name"},
      {"cups:a/b", "has a bad queue name"},
      {"usb://Maker/Model", "is no destination (COM1, a path, socket://HOST:PORT or cups:QUEUE)"},
  };
  for (const Case &c : cases) {
    Destination d;
    EXPECT_EQ(parse_destination(c.name.c_str(), serial, &d), 0) << c.name;
    EXPECT_STREQ(d.problem, c.problem) << c.name;
  }
  EXPECT_EQ(deliver_buffer(dest("socket://h:0"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [socket://h:0] has a bad port number (1 to 65535)");
}

TEST_F(DestinationTest, SocketTakesEveryByteOncePerCopy) {
  std::string job = job_bytes(3 << 20);
  Listener emb(3);
  Destination d = dest(emb.url());
  int id = -1;
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "plan", &id), 1);
  EXPECT_EQ(id, 0);
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "plan", &id), 1);
  EXPECT_EQ(deliver_file(d, write_file("job.out", job).c_str(), "plan", &id), 1);
  expect_all_taken(emb.received(), 3, job);
}

TEST_F(DestinationTest, SocketThatRefusesStaysSilentOrHangsUp) {
  std::string closed = "socket://127.0.0.1:" + std::to_string(free_port());
  EXPECT_EQ(deliver_buffer(dest(closed), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + closed + "] refused the connection");

  // One connection fills the backlog of 0 (once the listener has taken its
  // last handshake packet); the next handshake is dropped.
  Listener silent(0, false, false);
  int filler = loopback(silent.port(), false);
  ASSERT_GE(filler, 0);
  usleep(50000);
  Destination d = dest(silent.url());
  d.connect_ms = 300;
  EXPECT_EQ(deliver_buffer(d, "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + silent.url() + "] did not answer in 0.3 s");
  close(filler);

  Listener rude(1, true);
  std::string job = job_bytes(16 << 20);
  EXPECT_EQ(deliver_buffer(dest(rude.url()), job.data(), job.size(), "t", nullptr), 0);
  expect_one_error("printer [" + rude.url() + "] write failed (", false);
}

TEST_F(DestinationTest, NamedPipeReaderGetsTheJob) {
  std::string fifo = temp_path("emb.fifo"), job = job_bytes(300000), got;
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  // The reader comes a little late: the job waits for it.
  std::thread reader([&] {
    usleep(100000);
    std::ifstream in(fifo, std::ios::binary);
    got.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  });
  EXPECT_EQ(deliver_file(dest(fifo), write_file("job.out", job).c_str(), "t", nullptr), 1);
  reader.join();
  expect_all_taken({got}, 1, job);
}

TEST_F(DestinationTest, NamedPipeWithoutAWillingReaderEndsTheCopy) {
  std::string fifo = temp_path("emb.fifo"), other = temp_path("other.fifo"), job = job_bytes(1 << 20);
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  ASSERT_EQ(mkfifo(other.c_str(), 0600), 0);
  Destination d = dest(fifo);
  d.stall_ms = 200;
  EXPECT_EQ(deliver_buffer(d, "x", 1, "t", nullptr), 0);
  expect_one_error("printer [" + fifo + "] has no reader for 0.2 s");

  int idle = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(deliver_buffer(d, job.data(), job.size(), "t", nullptr), 0);
  expect_one_error("printer [" + fifo + "] took no data for 0.2 s");
  close(idle);

  // This reader leaves as soon as the first bytes arrive: the pipe breaks,
  // and the program lives on with no signal left pending.
  int leaving = open(other.c_str(), O_RDONLY | O_NONBLOCK);
  std::thread leaver([leaving] {
    pollfd p = {leaving, POLLIN, 0};
    poll(&p, 1, 10000);
    close(leaving);
  });
  EXPECT_EQ(deliver_buffer(dest(other), job.data(), job.size(), "t", nullptr), 0);
  leaver.join();
  expect_one_error("printer [" + other + "] write failed (Broken pipe)");
  sigset_t pending;
  sigpending(&pending);
  EXPECT_FALSE(sigismember(&pending, SIGPIPE));
}

TEST_F(DestinationTest, FileCollectsCopiesButAMissingDeviceIsNotMade) {
  std::string out = temp_path("port.bin");
  EXPECT_EQ(deliver_buffer(dest(out), "ab\n", 3, "t", nullptr), 1);
  EXPECT_EQ(deliver_buffer(dest(out), "cd\n", 3, "t", nullptr), 1);
  EXPECT_EQ(read_file(out), "ab\ncd\n");
  EXPECT_EQ(deliver_buffer(dest("/dev/tacto-no-embosser"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [/dev/tacto-no-embosser] was not open (No such file or directory)");
  EXPECT_NE(access("/dev/tacto-no-embosser", F_OK), 0);
  std::string none = temp_path("none.out");
  EXPECT_EQ(deliver_file(dest(out), none.c_str(), "t", nullptr), 0);
  expect_one_error("job [" + none + "] was not open (No such file or directory)");
}

TEST_F(DestinationTest, TerminalTakesTheLineSettingsAndBytesUnchanged) {
  int master, slave;
  char name[128];
  ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
  // A pseudo-terminal keeps 8 bits without parity whatever it is told.
  serial.baud = 19200;
  serial.stop = 2;
  serial.xon = 0;
  EXPECT_EQ(deliver_buffer(dest(name), "\x1b\x1bG\r\n1\n", 7, "t", nullptr), 1);
  std::string got;
  char buf[64];
  pollfd p = {master, POLLIN, 0};
  for (ssize_t n; got.size() < 7 && poll(&p, 1, 5000) > 0 && (n = read(master, buf, sizeof buf)) > 0;)
    got.append(buf, static_cast<size_t>(n));
  EXPECT_EQ(got, "\x1b\x1bG\r\n1\n");
  termios t;
  ASSERT_EQ(tcgetattr(slave, &t), 0);
  EXPECT_EQ(cfgetospeed(&t), static_cast<speed_t>(B19200));
  EXPECT_NE(t.c_cflag & CSTOPB, 0u);
  EXPECT_EQ(t.c_iflag & (IXON | IXOFF), 0u);
  EXPECT_EQ(t.c_oflag & OPOST, 0u);
  close(slave);
  close(master);
}

// A CUPS scheduler of the test's own, the library pointed at it.
class CupsTest : public DestinationTest {
 protected:
  void SetUp() override {
    DestinationTest::SetUp();
    if (!CupsServer::installed()) GTEST_SKIP() << "cupsd is not installed (Debian: cups)";
    cups_.reset(new CupsServer);
    ASSERT_TRUE(cups_->up()) << cups_->log();
    cupsSetServer(cups_->server().c_str());
  }
  void TearDown() override {
    cups_.reset();
    cupsSetServer(nullptr);
    DestinationTest::TearDown();
  }
  std::unique_ptr<CupsServer> cups_;
};

TEST_F(CupsTest, RawJobsReachTheQueueDeviceOncePerCopy) {
  Listener emb(3);
  ASSERT_TRUE(cups_->lpadmin("-p emb -E -v " + emb.url())) << cups_->log();
  std::string job = job_bytes(200000);
  int first = 0, second = 0, third = 0;
  EXPECT_EQ(deliver_buffer(dest("cups:emb"), job.data(), job.size(), "house_plan.txt", &first), 1);
  EXPECT_EQ(deliver_file(dest("cups:emb"), write_file("tmp.out", job).c_str(), "house_plan.txt", &second), 1);
  ASSERT_TRUE(cups_->lpadmin("-d emb"));
  EXPECT_EQ(deliver_buffer(dest("cups:"), job.data(), job.size(), "", &third), 1);
  EXPECT_GT(first, 0);
  EXPECT_EQ(second, first + 1);
  EXPECT_EQ(third, first + 2);
  expect_all_taken(emb.received(), 3, job);
  cups_job_t *jobs;
  int n = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, "emb", 0, CUPS_WHICHJOBS_ALL);
  std::vector<std::string> titles;
  for (int i = 0; i < n; i++) titles.push_back(jobs[i].title);
  cupsFreeJobs(n, jobs);
  std::sort(titles.begin(), titles.end());
  EXPECT_EQ(titles, (std::vector<std::string>{"house_plan.txt", "house_plan.txt", "tacto"}));
}

TEST_F(CupsTest, UnknownQueueAndMissingServerAreReported) {
  int id = -1;
  EXPECT_EQ(deliver_buffer(dest("cups:nosuch"), "x", 1, "t", &id), 0);
  EXPECT_EQ(id, 0);
  expect_one_error("printer [cups:nosuch] no such queue");
  EXPECT_EQ(deliver_buffer(dest("cups:"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [cups:] has no default queue");
  cups_->stop();
  EXPECT_EQ(deliver_buffer(dest("cups:emb"), "x", 1, "t", nullptr), 0);
  expect_one_error("printer [cups:emb] found no print server at " + cups_->server());
}
