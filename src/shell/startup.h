// startup.h - the program from entry to good-bye: defaults, options, the
// system file, the help file, the input, the run, and the shutdown.
#ifndef TACTO_SHELL_STARTUP_H
#define TACTO_SHELL_STARTUP_H

// The whole program; returns the exit status.
int tacto_main(int argc, char **argv);

// Closes the lists and the PostScript file and saves the system file.
void shutdown_program();

// Shuts down and ends the process with `status` (fatal failures).
[[noreturn]] void end_program(int status);

#endif
