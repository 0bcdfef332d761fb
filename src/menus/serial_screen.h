// serial_screen.h - the screen that sets the serial port: name, baud rate,
// data bits, flow control, parity and stop bits, confirmed before they are kept.
#ifndef TACTO_MENUS_SERIAL_SCREEN_H
#define TACTO_MENUS_SERIAL_SCREEN_H

// Asks each setting in turn (Enter keeps it, a period goes back unchanged),
// shows the result and stores it when confirmed. Returns 1.
int serial_screen();

// A port name as typed, made whole: "3" is "COM3", "com2" is "COM2".
void normalize_port(const char *typed, char *out, int size);

// 1 when the name can be a port: COM and a number, an existing device, or a
// file in a writable directory standing for the port.
int port_usable(const char *name);

#endif
