// serial.h - the serial port that reaches the embosser: its settings, kept
// in the system file, and applying them to the port's device.
#ifndef TACTO_DEVICES_SERIAL_H
#define TACTO_DEVICES_SERIAL_H

enum : int { PORT_NAME_SIZE = 96 };

struct SerialSettings {
  char port[PORT_NAME_SIZE];  // the destination: "COM1" (/dev/ttyS0), a path, socket://, cups:
  int baud;                   // 9600
  int data_bits;              // 8
  int xon;                    // 1 XON/XOFF, 0 none
  int parity;                 // 0 none, 1 odd, 2 even
  int stop;                   // 0 one, 1 one and a half, 2 two
};
extern SerialSettings serial;

extern const int baud_table[8];

// Sets a terminal's line to the settings, with raw output so that bytes
// pass unchanged; 0 when the terminal refuses.
int set_line(int fd, const SerialSettings &s);

#endif
