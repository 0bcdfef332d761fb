// destination.h - where a print job's bytes go. The serial settings' port
// name is read as a serial port (COM1..COM99 or digits), a path (a device, a
// named pipe, a plain file), a raw TCP socket (socket://HOST[:PORT]) or a CUPS
// queue (cups:QUEUE, cups: for the default queue); one copy of a job is then
// delivered there.
//
// Nothing waits for ever: a connection gets `connect_ms`, and a printer that
// takes no data for `stall_ms` ends the copy. A reader or peer that goes away
// is a write error, never a fatal signal: every delivery holds SIGPIPE back
// and takes off one raised meanwhile, and sockets write with MSG_NOSIGNAL, so
// the process keeps its own SIGPIPE handling.
#ifndef TACTO_DEVICES_DESTINATION_H
#define TACTO_DEVICES_DESTINATION_H

#include <cstddef>

#include "devices/serial.h"

// Kinds of destination.
enum : int {
  DEST_SERIAL = 0,  // COM1..COM99 or digits: /dev/ttyS0 ..
  DEST_PATH = 1,    // a device, named pipe or plain file
  DEST_SOCKET = 2,  // raw TCP, one connection per copy
  DEST_CUPS = 3,    // a raw job on a CUPS queue, one job per copy
};

enum : int {
  DEST_TEXT_SIZE = PORT_NAME_SIZE + 16,  // a label or target: "/dev/" or "socket://" and ":65535" added
  RAW_TCP_PORT = 9100,                   // the raw printing port of network embossers
  CONNECT_MS = 5000,                     // default connect timeout
  STALL_MS = 30000,                      // default time a printer may take no data
};

struct Destination {
  int kind;                     // DEST_*
  char label[DEST_TEXT_SIZE];   // as messages name it: "/dev/ttyS0", "socket://host:9100", "cups:emb"
  char target[DEST_TEXT_SIZE];  // the device path, the host, or the queue ("" the default queue)
  int port;                     // the TCP port of a socket
  SerialSettings line;          // the line settings for a terminal device
  int connect_ms;               // how long connecting may take (CONNECT_MS)
  int stall_ms;                 // how long the printer may take no data (STALL_MS)
  const char *problem;          // why the name is no destination; nullptr when it is one
};

// Reads a port name ("COM1", "3", "/dev/usb/lp0", "lp0" for /dev/lp0,
// "socket://host:9100", "cups:emb", "cups:") with the line settings to apply
// to a terminal; 1 when it names a destination, else 0 with `problem` set.
int parse_destination(const char *name, const SerialSettings &line, Destination *d);

// Sends `size` bytes to the destination as one copy: 1 when every byte was
// taken, else 0 after one error "printer [LABEL] REASON". `title` names a CUPS
// job ("tacto" when empty); `job_id` (may be nullptr) receives its number, 0
// for the other kinds.
int deliver_buffer(const Destination &d, const char *data, size_t size, const char *title, int *job_id);

// Sends a file's bytes unchanged as one copy, as deliver_buffer does; a file
// that cannot be read gives "job [FILE] was not open (REASON)".
int deliver_file(const Destination &d, const char *file, const char *title, int *job_id);

// 1 when the name was read as a destination; else 0 after the error
// "printer [NAME] PROBLEM".
int destination_usable(const Destination &d);

// Applies the settings when the port is a terminal device; a failure goes
// unreported.
void apply_serial();

#endif
