// process.h - the life of the process: the reset list that every module
// holding a process-wide record joins, and the fatal exit that start-up
// installs.
#ifndef TACTO_CORE_PROCESS_H
#define TACTO_CORE_PROCESS_H

typedef void (*ResetFn)();

// Puts a module's reset on the list. Every module with a process-wide record
// calls it from a static initializer, so no record can be left out of
// reset_all_state. Resets must not depend on each other's order. Returns 1.
int add_reset(ResetFn reset);

// Restores every record on the list to its start-up defaults (the platform
// floor below keeps its own reset_platform).
void reset_all_state();

// Installs what a fatal failure runs before the process ends; start-up
// installs the shutdown that closes the lists and saves the settings file.
void set_fatal_exit(void (*hook)(int status));

// Ends the process with `status`: through the installed hook, else exit().
[[noreturn]] void fatal_exit(int status);

#endif
