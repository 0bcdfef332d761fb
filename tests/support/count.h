// count.h - counting what a run wrote, for unit and end-to-end tests alike.
#ifndef TACTO_TESTS_SUPPORT_COUNT_H
#define TACTO_TESTS_SUPPORT_COUNT_H

#include <string>

// Occurrences of `needle` in `text`, overlapping ones included.
inline int count_of(const std::string &text, const std::string &needle) {
  int n = 0;
  for (size_t at = text.find(needle); at != std::string::npos; at = text.find(needle, at + 1)) n++;
  return n;
}

#endif
