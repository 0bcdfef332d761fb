// main_menu.h - the console menu shown when no program file is given.
#ifndef TACTO_MENUS_MAIN_MENU_H
#define TACTO_MENUS_MAIN_MENU_H

// Loops until Quit is chosen and confirmed (end of input confirms it).
void main_menu();

// Runs the interpreter on the console input in a run mode (0, 1 or 2).
void console_run(int run_mode);

// The banner: title, version, release date and the current time.
void show_banner();

#endif
