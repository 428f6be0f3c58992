// The DLL's own allocation. The compiler's comes with exceptions, whose reserve of memory a host
// that loads and unloads the DLL would lose each time; nothing here throws.
#include <cstdlib>
#include <new>

const std::nothrow_t std::nothrow{};

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
