// serial_screen.h - the screen that sets the serial port: name (which may
// also be another destination: a device or file, socket://HOST:PORT or
// cups:QUEUE), baud rate, data bits, flow control, parity and stop bits,
// confirmed before they are kept.
#ifndef TACTO_MENUS_SERIAL_SCREEN_H
#define TACTO_MENUS_SERIAL_SCREEN_H

// Asks each setting in turn (Enter keeps it, a period goes back unchanged),
// shows the result and stores it when confirmed. Returns 1.
int serial_screen();

// A port name as typed, made whole: "3" is "COM3", "com2" is "COM2".
void normalize_port(const char *typed, char *out, int size);

#endif
