// What GNUstep's libraries allocate when they are loaded stays until the end.

extern "C" const char* __lsan_default_suppressions();  // NOLINT: the name is LeakSanitizer's

extern "C" const char* __lsan_default_suppressions() {  // NOLINT: the name is LeakSanitizer's
  return "leak:libobjc.so\nleak:libgnustep-base.so\nleak:libgnustep-gui.so\nleak:libgnustep-back\nleak:"
         "libfontconfig.so\n";
}
