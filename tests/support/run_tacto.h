// run_tacto.h - end-to-end test support: runs the built program in a
// directory of its own (its system file and help file beside it) and
// collects its exit status, standard output and standard error.
#ifndef TACTO_TESTS_SUPPORT_RUN_TACTO_H
#define TACTO_TESTS_SUPPORT_RUN_TACTO_H

#include <string>
#include <vector>

#include "support/count.h"

struct RunResult {
  int status;
  std::string out;  // standard output: echo lines and embosser bytes
  std::string err;  // standard error: prompts, banner, messages
};

// A step of a dialogue on a terminal: once `wait_for` shows (after what the
// step before waited for), `type` is typed.
struct Exchange {
  std::string wait_for, type;
};

class TactoDir {
 public:
  TactoDir();   // a fresh directory holding tacto and tacto.hlp
  ~TactoDir();
  const std::string &path() const { return dir_; }
  std::string file(const std::string &name) const { return dir_ + "/" + name; }
  void write(const std::string &name, const std::string &text) const;
  std::string read(const std::string &name) const;
  bool exists(const std::string &name) const;
  void remove(const std::string &name) const;
  // Runs ./tacto (or another name for the program) with arguments and input.
  RunResult run(const std::vector<std::string> &args, const std::string &input = "",
                const std::string &program = "tacto") const;
  // Runs ./tacto on a pseudo-terminal, its locale only what `env` sets
  // ("LANG=ja_JP.UTF-8"), answering the dialogue. `err` is all the terminal
  // showed; `status` -1 when the program did not end by itself.
  RunResult run_on_terminal(const std::vector<std::string> &args, const std::vector<std::string> &env,
                            const std::vector<Exchange> &dialogue) const;
 private:
  std::string dir_;
};

// A program's first lines for a page where one world unit is one millimetre
// (two dots of the Everest-D a4 grid), and their test-mode echo.
static const std::string MM_PAGE = "everest-d\nwindow -95 95 -138.5 138.5\n";
static const std::string MM_ECHO = "everest-d\nwindow -95.000 95.000 -138.500 138.500\n";

// Runs a program text with options; a fresh directory each time.
RunResult run_program(const std::string &program, const std::vector<std::string> &options = {"-r"});

#endif
