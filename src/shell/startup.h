// startup.h - the program from entry to good-bye: defaults, options, the
// system file, the help file, the input, the run, and the shutdown.
#ifndef TACTO_SHELL_STARTUP_H
#define TACTO_SHELL_STARTUP_H

// The whole program; returns the exit status.
int tacto_main(int argc, char **argv);

#endif
