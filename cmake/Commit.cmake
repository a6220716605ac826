# Writes which commit is being built into HEADER, empty where SOURCE is no clone of its own (a release that was unpacked,
# perhaps inside another project's clone). Called by every build; the header changes only when the commit does.
set(commit "")
if(WANTED)
  execute_process(COMMAND git -C ${SOURCE} rev-parse --show-toplevel OUTPUT_VARIABLE top RESULT_VARIABLE failed
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  file(REAL_PATH "${SOURCE}" here)
  if(failed EQUAL 0 AND top STREQUAL here)
    execute_process(COMMAND git -C ${SOURCE} describe --always --dirty --match "v[0-9]*" OUTPUT_VARIABLE commit
      OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
endif()
configure_file(${SOURCE}/src/base/Commit.h.in ${HEADER} @ONLY)
