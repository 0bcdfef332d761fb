// serial.cpp - serial port settings applied through termios.
#include "devices/serial.h"

#include <cstring>
#include <termios.h>

#include "core/process.h"
#include "core/run_state.h"

SerialSettings serial;

const int baud_table[8] = {110, 300, 600, 1200, 2400, 4800, 9600, 19200};

static void reset_serial() {
  serial = SerialSettings();
  copy_text(serial.port, PORT_NAME_SIZE, "COM1");
  serial.baud = 9600;
  serial.data_bits = 8;
  serial.xon = 1;
  serial.parity = 0;
  serial.stop = 0;
}
[[maybe_unused]] static const int reset_listed = add_reset(reset_serial);

// The termios speed constant of a baud rate; 0 when there is none.
static speed_t speed_of(int baud) {
  switch (baud) {
    case 110: return B110;
    case 300: return B300;
    case 600: return B600;
    case 1200: return B1200;
    case 2400: return B2400;
    case 4800: return B4800;
    case 9600: return B9600;
    case 19200: return B19200;
    default: return 0;
  }
}

int set_line(int fd, const SerialSettings &s) {
  struct termios t;
  if (tcgetattr(fd, &t) != 0) return 0;
  speed_t speed = speed_of(s.baud);
  if (speed != 0) {
    cfsetispeed(&t, speed);
    cfsetospeed(&t, speed);
  }
  t.c_cflag &= ~CSIZE;
  switch (s.data_bits) {
    case 5: t.c_cflag |= CS5; break;
    case 6: t.c_cflag |= CS6; break;
    case 7: t.c_cflag |= CS7; break;
    default: t.c_cflag |= CS8; break;
  }
  t.c_cflag &= ~(PARENB | PARODD);
  if (s.parity == 1) t.c_cflag |= PARENB | PARODD;
  if (s.parity == 2) t.c_cflag |= PARENB;
  // One and a half stop bits are sent as two, the nearest the port offers.
  if (s.stop == 0) t.c_cflag &= ~CSTOPB;
  else t.c_cflag |= CSTOPB;
  if (s.xon) t.c_iflag |= IXON | IXOFF;
  else t.c_iflag &= ~(IXON | IXOFF);
  t.c_cflag |= CLOCAL | CREAD;
  // Embosser streams are binary: no line feed may grow a carriage return.
  t.c_oflag &= ~OPOST;
  return tcsetattr(fd, TCSANOW, &t) == 0;
}
