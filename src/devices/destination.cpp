// destination.cpp - port names read as destinations, and one copy of a job
// delivered to a device, a socket or a CUPS queue.
#include "devices/destination.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cups/cups.h>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <signal.h>
#include <strings.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/diag.h"
#include "core/run_state.h"

// ---- Reading a port name ----

static int refuse(Destination *d, const char *problem) {
  d->problem = problem;
  return 0;
}

static int all_digits(const char *s) { return s[0] != '\0' && strspn(s, "0123456789") == strlen(s); }

// "HOST[:PORT][/]" after socket://; an IPv6 host is written in brackets.
static int parse_socket(const char *rest, Destination *d) {
  d->kind = DEST_SOCKET;
  const char *host = rest, *end;
  if (rest[0] == '[') {
    host = rest + 1;
    end = strchr(host, ']');
    if (end == nullptr) return refuse(d, "has a bad host");
  } else {
    end = host + strcspn(host, ":/");
  }
  if (end == host) return refuse(d, "has no host");
  snprintf(d->target, DEST_TEXT_SIZE, "%.*s", static_cast<int>(end - host), host);
  const char *after = end + (rest[0] == '[' ? 1 : 0);
  d->port = RAW_TCP_PORT;
  if (after[0] == ':') {
    const char *digits = after + 1;
    size_t n = strspn(digits, "0123456789");
    long port = n >= 1 && n <= 5 ? strtol(digits, nullptr, 10) : 0;
    if (port < 1 || port > 65535) return refuse(d, "has a bad port number (1 to 65535)");
    d->port = static_cast<int>(port);
    after = digits + n;
  }
  if (strcmp(after, "") != 0 && strcmp(after, "/") != 0) return refuse(d, "has a bad port number (1 to 65535)");
  const char *open = rest[0] == '[' ? "[" : "", *close = rest[0] == '[' ? "]" : "";
  snprintf(d->label, DEST_TEXT_SIZE, "socket://%s%s%s:%d", open, d->target, close, d->port);
  return 1;
}

// The queue after cups:, "" for the default queue.
static int parse_queue(const char *queue, Destination *d) {
  d->kind = DEST_CUPS;
  for (const char *c = queue; *c != '\0'; c++)
    if (*c <= ' ' || *c == 127 || strchr("/#\\?'\"", *c) != nullptr) return refuse(d, "has a bad queue name");
  copy_text(d->target, DEST_TEXT_SIZE, queue);
  snprintf(d->label, DEST_TEXT_SIZE, "cups:%s", queue);
  return 1;
}

int parse_destination(const char *name, const SerialSettings &line, Destination *d) {
  *d = Destination();
  d->line = line;
  d->connect_ms = CONNECT_MS;
  d->stall_ms = STALL_MS;
  copy_text(d->label, DEST_TEXT_SIZE, name);
  size_t length = strnlen(name, PORT_NAME_SIZE);
  if (length == 0) return refuse(d, "has no name");
  if (length >= PORT_NAME_SIZE) return refuse(d, "is longer than 95 characters");
  if (strncasecmp(name, "socket://", 9) == 0) return parse_socket(name + 9, d);
  if (strncasecmp(name, "cups:", 5) == 0) return parse_queue(name + 5, d);
  if (strstr(name, "://") != nullptr)
    return refuse(d, "is no destination (COM1, a path, socket://HOST:PORT or cups:QUEUE)");
  const char *number = strncasecmp(name, "COM", 3) == 0 ? name + 3 : name;
  if (all_digits(number)) {
    int n = atoi(number);
    if (strlen(number) > 2 || n < 1) return refuse(d, "is no serial port (COM1 to COM99)");
    d->kind = DEST_SERIAL;
    snprintf(d->target, DEST_TEXT_SIZE, "/dev/ttyS%d", n - 1);
  } else {
    // A bare name is a device ("lp0", "usb/lp0"); "./name" a file here.
    d->kind = DEST_PATH;
    snprintf(d->target, DEST_TEXT_SIZE, "%s%s", name[0] == '/' || name[0] == '.' ? "" : "/dev/", name);
  }
  copy_text(d->label, DEST_TEXT_SIZE, d->target);
  return 1;
}

// ---- Reporting ----

// Reports "printer [LABEL] REASON" once through the error counter; returns 0.
static int fail(const Destination &d, const char *format, ...) __attribute__((format(printf, 2, 3)));
static int fail(const Destination &d, const char *format, ...) {
  char reason[160];
  va_list args;
  va_start(args, format);
  vsnprintf(reason, sizeof reason, format, args);
  va_end(args);
  char text[DEST_TEXT_SIZE + sizeof reason + 16];
  snprintf(text, sizeof text, "printer [%s] %s", d.label, reason);
  return put_error(text);
}

// Milliseconds as messages give them: "30 s", "0.3 s".
static double seconds(int ms) { return ms / 1000.0; }

// ---- Devices and sockets ----

// Writes every byte, waiting up to `stall_ms` whenever the descriptor takes
// nothing; 0 when all went, else the errno (ETIMEDOUT for a stall).
static int write_all(int fd, int is_socket, const char *data, size_t size, int stall_ms) {
  size_t done = 0;
  while (done < size) {
    ssize_t w = is_socket ? send(fd, data + done, size - done, MSG_NOSIGNAL) : write(fd, data + done, size - done);
    if (w > 0) {
      done += static_cast<size_t>(w);
      continue;
    }
    if (w < 0 && errno == EINTR) continue;
    if (w < 0 && errno != EAGAIN && errno != EWOULDBLOCK) return errno;
    struct pollfd p = {fd, POLLOUT, 0};
    int ready = poll(&p, 1, stall_ms);
    if (ready == 0) return ETIMEDOUT;
    if (ready < 0 && errno != EINTR) return errno;
  }
  return 0;
}

// Opens a device, pipe or file for writing without blocking. A named pipe
// without a reader is tried again until the stall time has passed; a path
// outside /dev that does not exist becomes a file, a missing device does not.
static int open_device(const Destination &d) {
  int create = d.kind == DEST_PATH && strncmp(d.target, "/dev/", 5) != 0 ? O_CREAT | O_APPEND : 0;
  struct timespec nap = {0, 50 * 1000 * 1000};
  for (int waited = 0;; waited += 50) {
    int fd = open(d.target, O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC | create, 0644);
    if (fd >= 0) {
      if (isatty(fd)) set_line(fd, d.line);
      return fd;
    }
    struct stat st;
    if (errno != ENXIO || stat(d.target, &st) != 0 || !S_ISFIFO(st.st_mode)) {
      fail(d, "was not open (%s)", strerror(errno));
      return -1;
    }
    if (waited >= d.stall_ms) {
      fail(d, "has no reader for %g s", seconds(d.stall_ms));
      return -1;
    }
    nanosleep(&nap, nullptr);
  }
}

// Waits for a non-blocking connect; 0 when connected, else the errno.
static int finish_connect(int fd, int ms) {
  struct pollfd p = {fd, POLLOUT, 0};
  int ready;
  do ready = poll(&p, 1, ms);
  while (ready < 0 && errno == EINTR);
  if (ready == 0) return ETIMEDOUT;
  if (ready < 0) return errno;
  int err = 0;
  socklen_t len = sizeof err;
  if (getsockopt(fd, SOL_SOCKET, SO_ERROR, &err, &len) != 0) return errno;
  return err;
}

// Connects to the socket's host and port, each address in turn, within the
// connect time; -1 after the message.
static int open_socket(const Destination &d) {
  struct addrinfo hints = {}, *found = nullptr;
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  char port[8];
  snprintf(port, sizeof port, "%d", d.port);
  int gai = getaddrinfo(d.target, port, &hints, &found);
  if (gai != 0) {
    fail(d, "has an unknown host (%s)", gai_strerror(gai));
    return -1;
  }
  int err = 0, fd = -1;
  for (struct addrinfo *a = found; a != nullptr && fd < 0; a = a->ai_next) {
    fd = socket(a->ai_family, a->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, a->ai_protocol);
    if (fd < 0) {
      err = errno;
      continue;
    }
    err = connect(fd, a->ai_addr, a->ai_addrlen) == 0 ? 0 : errno;
    if (err == EINPROGRESS || err == EINTR) err = finish_connect(fd, d.connect_ms);
    if (err != 0) {
      close(fd);
      fd = -1;
    }
  }
  freeaddrinfo(found);
  if (fd >= 0) return fd;
  if (err == ECONNREFUSED) fail(d, "refused the connection");
  else if (err == ETIMEDOUT) fail(d, "did not answer in %g s", seconds(d.connect_ms));
  else fail(d, "could not be reached (%s)", strerror(err));
  return -1;
}

// Ends a socket's job cleanly: no more data, then what the printer still
// says is read until it closes (for at most `ms` in all), so the close never
// resets a connection with data in flight.
static void close_socket(int fd, int ms) {
  shutdown(fd, SHUT_WR);
  struct timespec start, now;
  clock_gettime(CLOCK_MONOTONIC, &start);
  char scrap[512];
  for (int left = ms; left > 0;) {
    struct pollfd p = {fd, POLLIN, 0};
    if (poll(&p, 1, left) <= 0 || recv(fd, scrap, sizeof scrap, 0) <= 0) break;
    clock_gettime(CLOCK_MONOTONIC, &now);
    left = ms - static_cast<int>((now.tv_sec - start.tv_sec) * 1000 + (now.tv_nsec - start.tv_nsec) / 1000000);
  }
  close(fd);
}

// ---- CUPS ----

// The library never prompts for a password: the job fails instead.
static const char *no_password(const char *, http_t *, const char *, const char *, void *) { return nullptr; }

// Why the last CUPS request failed, in words for the message.
static const char *cups_reason(const char *not_found) {
  return cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND ? not_found : cupsLastErrorString();
}

// ---- One copy ----

// An open copy: a descriptor for devices and sockets, a job for CUPS.
struct Sink {
  const Destination *d;
  int fd;
  http_t *http;
  char queue[DEST_TEXT_SIZE];
  int job_id;
};

// Opens a CUPS job with one raw document; 0 after the message.
static int open_job(Sink &s, const char *title) {
  const Destination &d = *s.d;
  cupsSetPasswordCB2(no_password, nullptr);
  s.http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, d.connect_ms, nullptr);
  if (s.http == nullptr && cupsServer()[0] == '/') return fail(d, "found no print server at %s", cupsServer());
  if (s.http == nullptr) return fail(d, "found no print server at %s:%d", cupsServer(), ippPort());
  httpSetTimeout(s.http, seconds(d.stall_ms), nullptr, nullptr);
  cups_dest_t *dest = cupsGetNamedDest(s.http, d.target[0] != '\0' ? d.target : nullptr, nullptr);
  if (dest == nullptr) return fail(d, "%s", cups_reason(d.target[0] != '\0' ? "no such queue" : "has no default queue"));
  copy_text(s.queue, DEST_TEXT_SIZE, dest->name);
  cupsFreeDests(1, dest);
  s.job_id = cupsCreateJob(s.http, s.queue, title, 0, nullptr);
  if (s.job_id == 0) return fail(d, "%s", cups_reason("no such queue"));
  if (cupsStartDocument(s.http, s.queue, s.job_id, title, CUPS_FORMAT_RAW, 1) != HTTP_STATUS_CONTINUE)
    return fail(d, "job %d was not started (%s)", s.job_id, cupsLastErrorString());
  return 1;
}

static int open_sink(Sink &s, const char *title) {
  s.fd = -1;
  s.http = nullptr;
  s.job_id = 0;
  if (s.d->kind == DEST_CUPS) return open_job(s, title != nullptr && title[0] != '\0' ? title : "tacto");
  s.fd = s.d->kind == DEST_SOCKET ? open_socket(*s.d) : open_device(*s.d);
  return s.fd >= 0;
}

static int put_sink(Sink &s, const char *data, size_t size) {
  const Destination &d = *s.d;
  if (s.http != nullptr) {
    if (cupsWriteRequestData(s.http, data, size) == HTTP_STATUS_CONTINUE) return 1;
    return fail(d, "job %d failed (%s)", s.job_id, cupsLastErrorString());
  }
  int err = write_all(s.fd, d.kind == DEST_SOCKET, data, size, d.stall_ms);
  if (err == 0) return 1;
  if (err == ETIMEDOUT) return fail(d, "took no data for %g s", seconds(d.stall_ms));
  return fail(d, "write failed (%s)", strerror(err));
}

// Ends the copy; a CUPS job is finished when everything went, else
// cancelled. 0 when the end itself failed (after the message).
static int close_sink(Sink &s, int ok) {
  if (s.http != nullptr) {
    if (ok && cupsFinishDocument(s.http, s.queue) != IPP_STATUS_OK)
      ok = fail(*s.d, "job %d failed (%s)", s.job_id, cupsLastErrorString());
    if (!ok && s.job_id != 0) cupsCancelJob2(s.http, s.queue, s.job_id, 0);
    httpClose(s.http);
    return ok;
  }
  if (s.fd < 0) return ok;
  if (s.d->kind == DEST_SOCKET) close_socket(s.fd, s.d->connect_ms);
  else close(s.fd);
  return ok;
}

// SIGPIPE held back while a copy is delivered (see the header).
struct PipeGuard {
  sigset_t saved;
  int was_pending;
};

static void hold_sigpipe(PipeGuard &g) {
  sigset_t pipe, pending;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  sigpending(&pending);
  g.was_pending = sigismember(&pending, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipe, &g.saved);
}

static void release_sigpipe(const PipeGuard &g) {
  sigset_t pipe, pending;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  sigpending(&pending);
  if (!g.was_pending && sigismember(&pending, SIGPIPE)) {
    struct timespec now = {0, 0};
    sigtimedwait(&pipe, nullptr, &now);
  }
  pthread_sigmask(SIG_SETMASK, &g.saved, nullptr);
}

// Delivers one copy from `next`, which points `chunk` at the next bytes and
// returns their number (0 at the end, -1 when the source failed after its
// own message).
template <typename Source>
static int deliver(const Destination &d, const char *title, int *job_id, Source next) {
  if (job_id != nullptr) *job_id = 0;
  if (!destination_usable(d)) return 0;
  PipeGuard guard;
  hold_sigpipe(guard);
  Sink s;
  s.d = &d;
  int ok = open_sink(s, title);
  const char *chunk;
  ssize_t n;
  while (ok && (n = next(&chunk)) != 0) ok = n > 0 && put_sink(s, chunk, static_cast<size_t>(n));
  ok = close_sink(s, ok);
  release_sigpipe(guard);
  if (ok && job_id != nullptr) *job_id = s.job_id;
  return ok;
}

int deliver_buffer(const Destination &d, const char *data, size_t size, const char *title, int *job_id) {
  int sent = 0;
  return deliver(d, title, job_id, [&](const char **chunk) -> ssize_t {
    *chunk = data;
    return sent++ ? 0 : static_cast<ssize_t>(size);
  });
}

// Reports a job file that cannot be opened or read; returns 0.
static int job_failed(const char *file, const char *what) {
  char text[PROGRAM_FILE_SIZE + 96];
  snprintf(text, sizeof text, "job [%s] %s (%s)", file, what, strerror(errno));
  return put_error(text);
}

int deliver_file(const Destination &d, const char *file, const char *title, int *job_id) {
  if (job_id != nullptr) *job_id = 0;
  FILE *in = fopen(file, "rb");
  if (in == nullptr) return job_failed(file, "was not open");
  char buf[65536];
  int ok = deliver(d, title, job_id, [&](const char **chunk) -> ssize_t {
    size_t n = fread(buf, 1, sizeof buf, in);
    *chunk = buf;
    if (n > 0 || !ferror(in)) return static_cast<ssize_t>(n);
    job_failed(file, "could not be read");
    return -1;
  });
  fclose(in);
  return ok;
}

int destination_usable(const Destination &d) { return d.problem == nullptr || fail(d, "%s", d.problem); }

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
