// serial.cpp - serial port settings applied through termios.
#include "devices/serial.h"

#include "devices/destination.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "shell/run_state.h"

SerialSettings serial;

const int baud_table[8] = {110, 300, 600, 1200, 2400, 4800, 9600, 19200};

void reset_serial() {
  serial = SerialSettings();
  copy_text(serial.port, PORT_NAME_SIZE, "COM1");
  serial.baud = 9600;
  serial.data_bits = 8;
  serial.xon = 1;
  serial.parity = 0;
  serial.stop = 0;
}

void serial_device(char *buf, int size) {
  Destination d;
  parse_destination(serial.port, serial, &d);
  snprintf(buf, size, "%s", d.label);
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

void apply_serial() {
  Destination d;
  struct stat st;
  if (!parse_destination(serial.port, serial, &d) || (d.kind != DEST_SERIAL && d.kind != DEST_PATH)) return;
  // Only a terminal takes settings; opening anything else (a pipe above
  // all, whose reader would see an end) is left to the job.
  if (stat(d.target, &st) != 0 || !S_ISCHR(st.st_mode)) return;
  int fd = open(d.target, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return;
  if (isatty(fd)) set_line(fd, serial);
  close(fd);
}

int copy_to_port(const char *file) {
  char path[PORT_NAME_SIZE + 16];
  serial_device(path, sizeof path);
  // Sockets and queues are reached by deliver_file only.
  Destination d;
  if (!parse_destination(serial.port, serial, &d) || (d.kind != DEST_SERIAL && d.kind != DEST_PATH)) return 0;
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
