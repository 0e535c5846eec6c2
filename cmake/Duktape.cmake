# Duktape from the sources that its package brings (MIT licence). The library in the package cannot be interrupted and
# reports errors by longjmp, which skips destructors; both are switches of its configuration. Regular expressions and
# searches for long texts are made to ask too whether the script shall end, since they can take hours, and a heap without
# finalizers collects its garbage twice instead of ten times before it gives up. It asks every few thousand instructions,
# since one instruction may copy many megabytes.

find_path(DUKTAPE_SOURCES duktape.c PATH_SUFFIXES share/duktape REQUIRED)

# Replaces in the variable `text`; a place that is not there is a mistake.
macro(duktape_change from into)
  string(FIND "${text}" "${from}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "The sources of Duktape have no \"${from}\"")
  endif()
  string(REPLACE "${from}" "${into}" text "${text}")
endmacro()

# The file is touched only when the text is another than before.
function(duktape_write file text)
  file(WRITE ${file}.new "${text}")
  configure_file(${file}.new ${file} COPYONLY)
endfunction()

# quillon_duktape(NAME CHECK): the static library NAME; `extern "C" int CHECK(void* udata)` says whether the script of a
# heap shall end, and must say so until it has ended.
function(quillon_duktape name check)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/duktape)
  configure_file(${DUKTAPE_SOURCES}/duktape.h ${folder}/duktape.h COPYONLY)

  file(READ ${DUKTAPE_SOURCES}/duk_config.h text)
  duktape_change("#undef DUK_USE_EXEC_TIMEOUT_CHECK"
                 "extern \"C\" int ${check}(void* udata);\n#define DUK_USE_EXEC_TIMEOUT_CHECK(udata) ${check}(udata)")
  duktape_change("#undef DUK_USE_INTERRUPT_COUNTER" "#define DUK_USE_INTERRUPT_COUNTER")
  duktape_change("#undef DUK_USE_CPP_EXCEPTIONS" "#define DUK_USE_CPP_EXCEPTIONS")
  duktape_write(${folder}/duk_config.h "${text}")

  file(READ ${DUKTAPE_SOURCES}/duktape.c text)
  set(limit "re_ctx->steps_count >= re_ctx->steps_limit")
  set(asked "(re_ctx->steps_count & 0xfff) == 0 && ${check}(re_ctx->thr->heap->heap_udata)")
  duktape_change("if (${limit}) {" "if (${limit} || (${asked})) {")
  set(asked "${check}(thr->heap->heap_udata)")
  set(found "if (duk_memcmp((const void *) p, (const void *) q_start, (size_t) q_blen) == 0) {")
  duktape_change("${found}" "if (q_blen > 64 && ${asked}) { DUK_ERROR_RANGE(thr, \"search stopped\"); } ${found}")
  set(piece "p_end -= q_blen; /* ensure full memcmp() fits in while */")
  duktape_change("${piece}" "if (${asked}) { DUK_ERROR_RANGE(thr, \"search stopped\"); } ${piece}")
  duktape_change("10 /* Retry allocation" "2 /* Retry allocation")
  duktape_change("INTCTR_DEFAULT (256L * 1024L)" "INTCTR_DEFAULT (4L * 1024L)")
  duktape_write(${folder}/duktape.cpp "${text}")

  add_library(${name} STATIC ${folder}/duktape.cpp)
  target_include_directories(${name} SYSTEM PUBLIC ${folder})
  target_compile_options(${name} PRIVATE -w -O2 -fno-sanitize=undefined)
endfunction()
