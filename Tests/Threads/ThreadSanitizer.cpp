// What the thread sanitizer is told.

extern "C" const char* __tsan_default_suppressions();

/// GLib synchronises its threads by means that the sanitizer does not see in libraries that were built without it.
extern "C" const char* __tsan_default_suppressions() {
  return "called_from_lib:libglib-2.0.so\ncalled_from_lib:libgobject-2.0.so\ncalled_from_lib:libgio-2.0.so\n";
}
