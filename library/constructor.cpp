// The constructor as the platform's own compilers call it: they expect it to return the object's
// address, mingw's constructor returns nothing.

// The memory of an object to be. Members, because only those have the convention of a constructor.
class ObjectMemory {
 public:
  // TavDrvV1's constructor, by the name that mingw gives it.
  void Construct(void* stream, void* port) __asm__("__ZN8TavDrvV1C1EPvS0_");

  void* ConstructAndReturn(void* stream, void* port) __asm__("_ConstructTavDrvV1");
};

void* ObjectMemory::ConstructAndReturn(void* stream, void* port) {
  Construct(stream, port);
  return this;
}
