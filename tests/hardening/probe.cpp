#include <cstdio>
#include <cstring>

// A buffer on the stack that is filled from outside: what the guards are for.
int main(int argc, char** argv) {
  char name[32];
  std::strcpy(name, argc > 1 ? argv[1] : "nobody");
  std::puts(name);
  return 0;
}
