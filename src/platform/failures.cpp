// How the C++ library's own last resorts end a program, a failed range check among them: at once. Its way is to throw
// and to print, for which it would bring along as much code as half the console, and nobody reads it on a device.
#include <cstdlib>

namespace __gnu_cxx {
[[noreturn]] void __verbose_terminate_handler();
void __verbose_terminate_handler() { std::abort(); }
}  // namespace __gnu_cxx

namespace std {
[[noreturn]] void __glibcxx_assert_fail(const char* file, int line, const char* function,
                                        const char* condition) noexcept;
void __glibcxx_assert_fail(const char*, int, const char*, const char*) noexcept { std::abort(); }
[[noreturn]] void __throw_out_of_range_fmt(const char* format, ...);
void __throw_out_of_range_fmt(const char*, ...) { std::abort(); }

// All that ours and what is linked with it call: one missing here would bring the library's own, and each of these
// twice.
[[noreturn]] void __throw_bad_alloc();
void __throw_bad_alloc() { std::abort(); }
[[noreturn]] void __throw_bad_array_new_length();
void __throw_bad_array_new_length() { std::abort(); }
[[noreturn]] void __throw_length_error(const char* what);
void __throw_length_error(const char*) { std::abort(); }
[[noreturn]] void __throw_logic_error(const char* what);
void __throw_logic_error(const char*) { std::abort(); }
}  // namespace std
