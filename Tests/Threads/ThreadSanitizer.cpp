// What the thread sanitizer is told.

extern "C" const char* __tsan_default_suppressions();

/// GLib synchronises its main contexts by means that the sanitizer does not see in a library that was built without it.
extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libglib-2.0.so";
}
