// setup_menu.h - the menu's Set item: printer and paper, serial port,
// language and alarm, kept in the system file.
#ifndef TACTO_MENUS_SETUP_MENU_H
#define TACTO_MENUS_SETUP_MENU_H

// Shows the setup menu until the user returns. Returns 1.
int setup_menu();

// The List item: the files of the current directory, then a key. Returns 1.
int list_directory();

#endif
