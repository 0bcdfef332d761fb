// sink.cpp - the table of output sinks, kept in rank order.
#include "raster/sink.h"

#include <vector>

// Built on first use: sinks register from static initializers, whose order
// across files is not fixed.
static std::vector<const Sink *> &sinks() {
  static std::vector<const Sink *> table;
  return table;
}

int add_sink(const Sink *sink) {
  std::vector<const Sink *> &table = sinks();
  auto at = table.begin();
  while (at != table.end() && (*at)->rank <= sink->rank) ++at;
  table.insert(at, sink);
  return 1;
}

// Offers an event to every sink in rank order; `handle` calls a sink's
// handler (when it has one) and returns 1 when the sink took the event.
template <typename Handle>
static int offer(int taken, Handle handle) {
  for (const Sink *s : sinks())
    if (handle(*s, taken)) taken = 1;
  return taken;
}

int offer_dot(const SinkDot &dot) {
  int taken = offer(dot.dropped, [&](const Sink &s, int t) { return s.dot != nullptr && s.dot(dot, t); });
  return taken && !dot.dropped;
}

int offer_move(const SinkDot &to) {
  return offer(0, [&](const Sink &s, int t) { return s.move != nullptr && s.move(to, t); });
}

int offer_size(int *code) {
  return offer(0, [&](const Sink &s, int t) { return s.size != nullptr && s.size(code, t); });
}

int offer_feed() {
  return offer(0, [](const Sink &s, int t) { return s.feed != nullptr && s.feed(t); });
}

int offer_map() {
  return offer(0, [](const Sink &s, int t) { return s.send_map != nullptr && s.send_map(t); });
}

int picture_output() {
  for (const Sink *s : sinks())
    if (s->picture != nullptr && s->picture()) return 1;
  return 0;
}
