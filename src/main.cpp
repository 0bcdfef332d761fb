// main.cpp - the program entry.
#include "shell/startup.h"

int main(int argc, char **argv) { return tacto_main(argc, argv); }
