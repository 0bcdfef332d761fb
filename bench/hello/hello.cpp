// hello.cpp - the C++ hello-world the start-up benchmark measures the
// program against.
#include <iostream>

int main() {
  std::cout << "hello, world\n";
  return 0;
}
