// screen_text.h - what the screens say, in each language they speak: the
// banner, the menus, prompts, screen titles, the quit question and the help
// browser's prompts. One row per text holds its English and Japanese side by
// side; another language is one more column. Errors and warnings are not
// here: they keep one wording, which the traces and lists record.
#ifndef TACTO_CORE_SCREEN_TEXT_H
#define TACTO_CORE_SCREEN_TEXT_H

// The languages of the screens, the columns of the table.
enum : int {
  LANG_ENGLISH = 0,
  LANG_JAPANESE = 1,
  LANG_COUNT = 2,
};

// One id per text, in the order of the table.
enum ScreenTextId : int {
  // The banner and the main menu.
  ST_BANNER,
  ST_MENU,
  ST_MENU_PROMPT,
  ST_NOT_AVAILABLE,
  ST_QUIT_QUESTION,
  ST_HELD_BYTES,
  // Conventions every screen shares.
  ST_BACK_HINT,
  ST_PRESS_KEY,
  ST_MODE,
  ST_TACTO_FILE,
  ST_PLOTTER_MODE,
  ST_PRINTER_MODE,
  ST_MODE_CHOICES,
  // The setup menu and the directory list.
  ST_SETUP_MENU,
  ST_PRINTER,
  ST_PAPER,
  ST_LANGUAGE_CHOICES,
  ST_LANGUAGE,
  ST_ENGLISH,
  ST_JAPANESE,
  ST_ALARM_CHOICES,
  ST_ALARM,
  ST_LIST_TITLE,
  ST_FILE_COUNT,
  // The serial port screen.
  ST_SERIAL_TITLE,
  ST_PORT_PROMPT,
  ST_BAUD_PROMPT,
  ST_BITS_CHOICES,
  ST_BITS_PROMPT,
  ST_FLOW_CHOICES,
  ST_FLOW_PROMPT,
  ST_NONE,
  ST_PARITY_CHOICES,
  ST_PARITY_PROMPT,
  ST_ODD,
  ST_EVEN,
  ST_STOP_PROMPT,
  ST_OTHER_PORTS,
  ST_SERIAL_RESULT,
  ST_PORT_DESTINATION,
  ST_SERIAL_CONFIRM,
  // The print screen.
  ST_PRINT_TITLE,
  ST_COPIES_PROMPT,
  ST_OUTPUT_CHOICES,
  ST_OUTPUT,
  ST_TO_PRINTER,
  ST_TO_FILE,
  ST_TO_EXCHANGE,
  ST_OUTPUT_FILE,
  ST_EXCHANGE_FILE,
  ST_PRINT_CONFIRM,
  ST_CONVERT_CONFIRM,
  ST_COPY,
  ST_EXECUTED,
  ST_DESTINATION,
  ST_SENT_COPY,
  ST_SENT_JOB,
  ST_SENT_LINE,
  ST_WRITTEN_LINE,
  // The image item and its two screens.
  ST_IMAGE_CHOICES,
  ST_POSTSCRIPT,
  ST_BITMAP,
  ST_POSTSCRIPT_TITLE,
  ST_BITMAP_TITLE,
  ST_POSTSCRIPT_FILE,
  ST_BITMAP_FILE,
  ST_PRINT_KIND_CHOICES,
  ST_DOT_PRINT,
  ST_INK_PRINT,
  ST_POSTSCRIPT_DONE,
  ST_BITMAP_DONE,
  // The help browser.
  ST_HELP_TITLE,
  ST_HELP_PRESS_KEY,
  ST_COUNT
};

// The language the screens speak now: the chosen one (run_state.language)
// when the terminal can show it, else English. Japanese needs UTF-8.
int screen_language();

// A text in the screen language.
const char *screen_text(int id);

// A text in a given language (LANG_*).
const char *screen_text_in(int id, int language);

// Prints `lead` and "press any key ? " in the screen language, then waits
// for a key.
void wait_for_key(const char *lead);

#endif
