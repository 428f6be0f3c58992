// The DLL has no exceptions: nothing in it throws. The compiler's own allocation and its standard
// library would bring the runtime for them, whose threads and reserve of memory a host that loads
// and unloads the DLL would lose each time. These stand in their place.
#include <cstdlib>
#include <new>

const std::nothrow_t std::nothrow{};

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }

// Named by the standard library's tables; only a throw would call it.
extern "C" void __gxx_personality_v0() { std::abort(); }
