// main_menu.h - the console menu shown when no program file is given.
#ifndef TACTO_MENUS_MAIN_MENU_H
#define TACTO_MENUS_MAIN_MENU_H

// Loops until Quit is chosen and confirmed (end of input confirms it).
void main_menu();

// The banner: title, version, release date and the current time; `clear`
// clears the screen first (the menu's screens, never a command-line run).
void show_banner(int clear);

#endif
