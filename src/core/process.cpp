// process.cpp - the reset list and the fatal-exit hook.
#include "core/process.h"

#include <cstdlib>
#include <vector>

// Built on first use: modules add to it from their static initializers,
// whose order across files is not fixed.
static std::vector<ResetFn> &reset_list() {
  static std::vector<ResetFn> list;
  return list;
}

int add_reset(ResetFn reset) {
  reset_list().push_back(reset);
  return 1;
}

void reset_all_state() {
  for (ResetFn reset : reset_list()) reset();
}

static void (*fatal_hook)(int status) = nullptr;

void set_fatal_exit(void (*hook)(int status)) { fatal_hook = hook; }

void fatal_exit(int status) {
  if (fatal_hook != nullptr) fatal_hook(status);
  exit(status);
}
