// process_bench.cpp - whole runs of the program, as a user starts them: the
// 500-figure page to the ESA721 stream, and an empty program beside a C++
// hello-world, each started with fork and exec in a directory of its own.
#include <benchmark/benchmark.h>

#include "bench_support.h"

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "support/run_tacto.h"

// Runs a program in `dir` with its output and error streams discarded;
// the exit status, or -1.
static int spawn(const std::string &dir, const std::string &program, const std::vector<std::string> &args) {
  pid_t pid = fork();
  if (pid == 0) {
    int null = open("/dev/null", O_RDWR);
    if (null < 0 || chdir(dir.c_str()) != 0) _exit(126);
    for (int fd = 0; fd < 3; fd++) dup2(null, fd);
    std::vector<char *> argv{const_cast<char *>(program.c_str())};
    for (const std::string &a : args) argv.push_back(const_cast<char *>(a.c_str()));
    argv.push_back(nullptr);
    execv(program.c_str(), argv.data());
    _exit(127);
  }
  int status = 0;
  if (pid < 0 || waitpid(pid, &status, 0) != pid) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The mixed page of draw_bench as a program text.
static std::string page_program() {
  std::string text;
  char line[200];
  unsigned seed = 12345;
  for (int k = 0; k < PAGE_FIGURES; k++) {
    PageFigure f = page_figure(seed, k);
    float x = f.x, y = f.y, a = f.a, b = f.b;
    switch (f.kind) {
      case 0: snprintf(line, sizeof line, "line %.9g %.9g %.9g %.9g 1.5\n", x, y, x + a, y + b); break;
      case 1: snprintf(line, sizeof line, "rectangle %.9g %.9g %.9g %.9g 1.5\n", x, y, x + a, y + b); break;
      case 2: snprintf(line, sizeof line, "circle %.9g %.9g %.9g 0 360 1.5\n", x, y, a); break;
      case 3: snprintf(line, sizeof line, "arrow %.9g %.9g %.9g %.9g 30 0.5 0 1.5\n", x, y, x + a, y - b); break;
      case 4: snprintf(line, sizeof line, "polygon 5 %.9g %.9g %.9g 1.5\n", x, y, a); break;
      case 5: snprintf(line, sizeof line, "ellipse %.9g %.9g %.9g %.9g 0 360 1.5\n", x, y, a, b); break;
      case 6: snprintf(line, sizeof line, "box %.9g %.9g %.9g %.9g 1.5\n", x, y, a, b); break;
      default: snprintf(line, sizeof line, "xaxis %.9g %.9g %.9g %.9g 0.5 2 1.5\n", x, y, x - a, x + a); break;
    }
    text += line;
  }
  return text;
}

static void BM_MixedPageProcess(benchmark::State &state) {
  TactoDir dir;
  dir.write("page.txt", page_program());
  const std::vector<std::string> args = {"-r", "-7", "page.txt"};
  if (spawn(dir.path(), "./tacto", args) != 0) state.SkipWithError("the page did not run");
  for (auto _ : state) benchmark::DoNotOptimize(spawn(dir.path(), "./tacto", args));
}
BENCHMARK(BM_MixedPageProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

// Each iteration starts the hello-world and then the empty program; the
// counters give each one's time and their ratio.
static void BM_EmptyProgramBesideHelloWorld(benchmark::State &state) {
  TactoDir dir;
  dir.write("empty.txt", "");
  const std::vector<std::string> args = {"empty.txt"};
  if (spawn(dir.path(), "./tacto", args) != 0 || spawn(dir.path(), TACTO_HELLO, {}) != 0)
    state.SkipWithError("a program did not run");  // the first run also writes the system file
  using Clock = std::chrono::steady_clock;
  double hello = 0, empty = 0;
  for (auto _ : state) {
    Clock::time_point t0 = Clock::now();
    spawn(dir.path(), TACTO_HELLO, {});
    Clock::time_point t1 = Clock::now();
    spawn(dir.path(), "./tacto", args);
    Clock::time_point t2 = Clock::now();
    hello += std::chrono::duration<double, std::micro>(t1 - t0).count();
    empty += std::chrono::duration<double, std::micro>(t2 - t1).count();
  }
  double n = static_cast<double>(state.iterations());
  state.counters["hello_us"] = hello / n;
  state.counters["empty_us"] = empty / n;
  state.counters["ratio"] = empty / hello;
}
BENCHMARK(BM_EmptyProgramBesideHelloWorld)->Unit(benchmark::kMillisecond)->UseRealTime();
