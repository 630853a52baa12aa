// Clang names this personality routine in every Objective-C++ function for GCC's runtime. The one of that
// runtime knows Objective-C exceptions only, so that no C++ exception could be caught; the one of C++ is
// right for these sources, which catch no other.

#include <unwind.h>

extern "C" {

// NOLINTBEGIN(readability-identifier-naming): the names are those of the ABI.
_Unwind_Reason_Code __gxx_personality_v0(int version, _Unwind_Action actions,
                                         _Unwind_Exception_Class exceptionClass, _Unwind_Exception* exception,
                                         _Unwind_Context* context);

[[gnu::visibility("hidden")]] _Unwind_Reason_Code __gnu_objc_personality_v0(
    int version, _Unwind_Action actions, _Unwind_Exception_Class exceptionClass, _Unwind_Exception* exception,
    _Unwind_Context* context) {
  return __gxx_personality_v0(version, actions, exceptionClass, exception, context);
}
// NOLINTEND(readability-identifier-naming)

}  // extern "C"
