// serial.cpp - serial port settings applied through termios.
#include "devices/serial.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <strings.h>
#include <termios.h>
#include <unistd.h>

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

void serial_device(char *buf, int size) {
  const char *name = serial.port;
  if (strncasecmp(name, "COM", 3) == 0 && isdigit(static_cast<unsigned char>(name[3]))) {
    snprintf(buf, size, "/dev/ttyS%d", atoi(name + 3) - 1);
  } else if (name[0] == '/') {
    snprintf(buf, size, "%s", name);
  } else {
    snprintf(buf, size, "/dev/%s", name);
  }
}

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

void apply_serial() {
  char path[PORT_NAME_SIZE + 16];
  serial_device(path, sizeof path);
  int fd = open(path, O_RDWR | O_NOCTTY | O_NONBLOCK);
  if (fd < 0) return;
  struct termios t;
  if (tcgetattr(fd, &t) == 0) {
    speed_t speed = speed_of(serial.baud);
    if (speed != 0) {
      cfsetispeed(&t, speed);
      cfsetospeed(&t, speed);
    }
    t.c_cflag &= ~CSIZE;
    switch (serial.data_bits) {
      case 5: t.c_cflag |= CS5; break;
      case 6: t.c_cflag |= CS6; break;
      case 7: t.c_cflag |= CS7; break;
      default: t.c_cflag |= CS8; break;
    }
    t.c_cflag &= ~(PARENB | PARODD);
    if (serial.parity == 1) t.c_cflag |= PARENB | PARODD;
    if (serial.parity == 2) t.c_cflag |= PARENB;
    // One and a half stop bits are sent as two, the nearest the port offers.
    if (serial.stop == 0) t.c_cflag &= ~CSTOPB;
    else t.c_cflag |= CSTOPB;
    if (serial.xon) t.c_iflag |= IXON | IXOFF;
    else t.c_iflag &= ~(IXON | IXOFF);
    t.c_cflag |= CLOCAL | CREAD;
    tcsetattr(fd, TCSANOW, &t);
  }
  close(fd);
}

int copy_to_port(const char *file) {
  char path[PORT_NAME_SIZE + 16];
  serial_device(path, sizeof path);
  FILE *in = fopen(file, "rb");
  if (in == nullptr) return 0;
  // A port may be a device or a plain file; writes wait for the embosser,
  // but not for ever.
  int fd = open(path, O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CREAT | O_APPEND, 0644);
  if (fd < 0) {
    fclose(in);
    return 0;
  }
  int ok = 1;
  char buf[4096];
  size_t n;
  while (ok && (n = fread(buf, 1, sizeof buf, in)) > 0) {
    size_t done = 0;
    while (done < n) {
      ssize_t w = write(fd, buf + done, n - done);
      if (w > 0) {
        done += static_cast<size_t>(w);
        continue;
      }
      struct pollfd p = {fd, POLLOUT, 0};
      if (w < 0 && errno != EAGAIN && errno != EINTR) ok = 0;
      else if (poll(&p, 1, 30000) <= 0) ok = 0;
      if (!ok) break;
    }
  }
  close(fd);
  fclose(in);
  return ok;
}
