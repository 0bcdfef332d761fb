// serial.h - the serial port that reaches the embosser: its settings, kept
// in the system file, and applying them to the port's device.
#ifndef TACTO_DEVICES_SERIAL_H
#define TACTO_DEVICES_SERIAL_H

enum : int { PORT_NAME_SIZE = 96 };

struct SerialSettings {
  char port[PORT_NAME_SIZE];  // "COM1" names /dev/ttyS0; a path names itself
  int baud;                   // 9600
  int data_bits;              // 8
  int xon;                    // 1 XON/XOFF, 0 none
  int parity;                 // 0 none, 1 odd, 2 even
  int stop;                   // 0 one, 1 one and a half, 2 two
};
extern SerialSettings serial;

extern const int baud_table[8];

// The device path of the port ("COM3" -> "/dev/ttyS2").
void serial_device(char *buf, int size);

// Applies the settings to the port's device; a failure goes unreported.
void apply_serial();

// Copies a file to the port unchanged; 0 when the port cannot be opened or
// takes no data for half a minute.
int copy_to_port(const char *file);

#endif
