// For builds with a leak checker: reading its font configuration, the system's library keeps a few bytes.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
