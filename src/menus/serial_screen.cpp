// serial_screen.cpp - the serial port settings screen.
#include "menus/serial_screen.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <strings.h>

#include "core/diag.h"
#include "core/run_state.h"
#include "core/screen_text.h"
#include "devices/destination.h"
#include "devices/serial.h"
#include "menus/console_io.h"
#include "platform/platform.h"

static const int kParity[3] = {ST_NONE, ST_ODD, ST_EVEN};
static const char *const kStop[3] = {"1.0", "1.5", "2.0"};

// Why a name is no destination.
static const char kNoDestination[] = "%s %s\n";

void normalize_port(const char *typed, char *out, int size) {
  std::string name = typed;
  int digits = !name.empty() && strspn(typed, "0123456789") == name.size();
  if (digits) name = "COM" + name;
  else if (strncasecmp(typed, "com", 3) == 0)
    for (int i = 0; i < 3; i++) name[i] = static_cast<char>(toupper(static_cast<unsigned char>(name[i])));
  copy_text(out, size, name.c_str());
}

// One question: the answer as text, "" for Enter; 0 when the user goes back.
static int answer(const char *prompt, char *buf, int size) {
  fputs(prompt, stderr);
  buf[0] = '\0';
  int got = read_text(buf, size);
  if (got < 0 || (got == 0 && console_io.at_end)) return 0;
  if (got == 0) buf[0] = '\0';
  return 1;
}

// Reads an integer answer; "" keeps `current`. -1 when it is no integer.
static long integer_of(const char *text, long current) {
  if (text[0] == '\0') return current;
  char *end = nullptr;
  long v = strtol(text, &end, 10);
  return (end == text || *end != '\0') ? -1 : v;
}

// Asks a numbered choice lo..hi until the answer is valid; 0 on going back.
static int ask_range(const char *choices, const char *prompt, int lo, int hi, int *value) {
  char buf[TEXT_SIZE + 1];
  for (;;) {
    fprintf(stderr, "\n%s", choices);
    if (!answer(prompt, buf, sizeof buf)) return 0;
    long v = integer_of(buf, *value);
    if (v >= lo && v <= hi) {
      *value = static_cast<int>(v);
      beep(1760, 50);
      return 1;
    }
  }
}

int serial_screen() {
  SerialSettings s = serial;
  Destination dest;
  char buf[TEXT_SIZE + 1], prompt[PORT_NAME_SIZE + 96];
  fprintf(stderr, "\n\n%s\n\n\n%s", screen_text(ST_SERIAL_TITLE), screen_text(ST_BACK_HINT));

  for (;;) {  // the port
    snprintf(prompt, sizeof prompt, screen_text(ST_PORT_PROMPT), s.port);
    fputs("\n(1:COM1, 2:COM2, 3:COM3, 4: COM4, ...)\n", stderr);
    fputs(screen_text(ST_OTHER_PORTS), stderr);
    if (!answer(prompt, buf, sizeof buf)) return 1;
    char name[PORT_NAME_SIZE];
    normalize_port(buf[0] ? buf : s.port, name, sizeof name);
    if (parse_destination(name, s, &dest)) {
      copy_text(s.port, PORT_NAME_SIZE, name);
      beep(1760, 50);
      break;
    }
    // A serial port's number is asked again in silence; another name is told what is wrong.
    if (strncmp(name, "COM", 3) != 0) fprintf(stderr, kNoDestination, name, dest.problem);
  }
  for (;;) {  // the baud rate: an index of the table or a rate of it
    fputc('\n', stderr);
    for (int i = 0; i < 8; i++) fprintf(stderr, "%d: %dbps%s", i, baud_table[i], i % 3 == 2 ? "\n" : "  ");
    snprintf(prompt, sizeof prompt, screen_text(ST_BAUD_PROMPT), s.baud);
    if (!answer(prompt, buf, sizeof buf)) return 1;
    long v = integer_of(buf, s.baud);
    if (v >= 0 && v <= 7) v = baud_table[v];
    int known = 0;
    for (int rate : baud_table) known |= rate == v;
    if (known) {
      s.baud = static_cast<int>(v);
      beep(1760, 50);
      break;
    }
  }
  snprintf(prompt, sizeof prompt, screen_text(ST_BITS_PROMPT), s.data_bits);
  if (!ask_range(screen_text(ST_BITS_CHOICES), prompt, 5, 8, &s.data_bits)) return 1;
  snprintf(prompt, sizeof prompt, screen_text(ST_FLOW_PROMPT), s.xon ? "Xon / Xoff" : screen_text(ST_NONE));
  if (!ask_range(screen_text(ST_FLOW_CHOICES), prompt, 0, 1, &s.xon)) return 1;
  snprintf(prompt, sizeof prompt, screen_text(ST_PARITY_PROMPT),
           s.parity >= 0 && s.parity <= 2 ? screen_text(kParity[s.parity]) : "???");
  if (!ask_range(screen_text(ST_PARITY_CHOICES), prompt, 0, 2, &s.parity)) return 1;
  for (;;) {  // stop bits: a code 0-2 or the number of bits itself
    snprintf(prompt, sizeof prompt, screen_text(ST_STOP_PROMPT), s.stop >= 0 && s.stop <= 2 ? kStop[s.stop] : "???");
    fputs("\n(0: 1.0, 1: 1.5, 2: 2.0)\n", stderr);
    if (!answer(prompt, buf, sizeof buf)) return 1;
    int code = -1;
    if (buf[0] == '\0') code = s.stop;
    else if (strcmp(buf, "0") == 0 || strcmp(buf, "1") == 0 || strcmp(buf, "2") == 0) code = buf[0] - '0';
    else {
      char *end = nullptr;
      double bits = strtod(buf, &end);
      if (end != buf && *end == '\0') code = bits == 1.0 ? 0 : bits == 1.5 ? 1 : bits == 2.0 ? 2 : -1;
    }
    if (code >= 0 && code <= 2) {
      s.stop = code;
      beep(1760, 50);
      break;
    }
  }

  fprintf(stderr, screen_text(ST_SERIAL_RESULT), s.port, s.baud, s.data_bits,
          s.xon ? "Xon / Xoff" : screen_text(ST_NONE), screen_text(kParity[s.parity]),
          s.stop == 0 ? 1.0 : s.stop == 1 ? 1.5 : 2.0);
  fprintf(stderr, screen_text(ST_PORT_DESTINATION), dest.label);
  for (;;) {
    fputs(screen_text(ST_SERIAL_CONFIRM), stderr);
    int key = get_key();
    if ((key == KEY_ENTER && !keys_at_end()) || key == 'y' || key == '1') {
      beep(1760, 50);
      serial = s;
      return 1;
    }
    if (key == 'n' || key == '0' || key == KEY_ESCAPE || keys_at_end()) return 1;
  }
}
