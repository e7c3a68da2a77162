// Linked into sanitized programs: what libraries keep to the end of the program is no leak of ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig";
}
