# Targets format, format-check, tidy and cppcheck. None is part of an ordinary build, and their tools are looked for
# when they run, so that building needs none of them.

set(lint_directories app benchmarks fuzz games net packaging seams tests text ui)
include(ProcessorCount)
ProcessorCount(processors)

function(lint_target name command)
  add_custom_target(${name} COMMAND bash -c "set -o pipefail; ${command}" WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM
                    USES_TERMINAL)
endfunction()

list(JOIN lint_directories " " directories)
list(JOIN lint_directories "|" alternatives)
set(find_sources "find ${directories} -name '*.cpp' -print0 -o -name '*.h' -print0")

lint_target(format "${find_sources} | xargs -0 clang-format -i")
lint_target(format-check "${find_sources} | xargs -0 clang-format --dry-run -Werror")

# All first-party files of this build directory's compile database; generated ones are left out. The filter of counted
# but unshown warnings of system headers keeps the output to what matters. The database is read without GCC's header
# sets, so that a file which does not include what it uses is found.
lint_target(tidy "mkdir -p ${PROJECT_BINARY_DIR}/tidy && \
sed -E 's/ -Winvalid-pch -include [^ ]+//' ${PROJECT_BINARY_DIR}/compile_commands.json \
>${PROJECT_BINARY_DIR}/tidy/compile_commands.json && \
run-clang-tidy -quiet -j ${processors} -p ${PROJECT_BINARY_DIR}/tidy \
'^${PROJECT_SOURCE_DIR}/(${alternatives})/.*[.]cpp$' 2>&1 \
| { grep -vE '^clang-tidy[^ ]* |^[0-9]+ warnings? (generated|treated)|^$' || true; }")

lint_target(cppcheck "cppcheck -j ${processors} --quiet --error-exitcode=1 --inline-suppr --std=c++20 --language=c++ \
--enable=warning,style,performance,portability --library=qt --library=googletest --suppressions-list=cmake/cppcheck.txt \
-I . ${directories}")
