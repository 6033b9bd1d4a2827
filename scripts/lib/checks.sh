# shellcheck shell=bash
# The checks of the sources that `scripts/test` runs. To be sourced after common.sh.

source_folders=(app control spaces input labels menubar preferences platform support tests benchmarks)

# Prints the project's own C++ files: sources with the argument `sources`, headers and Objective-C++ too with `all`.
cpp_files() {
  local folder patterns=()
  for folder in "${source_folders[@]}"; do
    patterns+=("$folder/*.cpp")
    if [[ $1 == all ]]; then patterns+=("$folder/*.h" "$folder/*.mm"); fi
  done
  project_files "${patterns[@]}"
}

# Each version of clang-format has a layout of its own; the project's is that of Debian 12's.
check_format() {
  cd "$root"
  if [[ $(clang-format --version) != *"version 14."* ]]; then
    note "Not checked: this is $(clang-format --version), and the layout is version 14's."
    return
  fi
  cpp_files all | xargs -d '\n' clang-format --dry-run -Werror
}

check_includes() {
  "$root/scripts/check-includes-test"
  "$root/scripts/check-includes"
  "$root/scripts/check-standard-includes-test"
  "$root/scripts/check-standard-includes"
}

# Paths of the machine something was written on mean nothing on another one.
check_paths() {
  local boundary='(^|[^[:alnum:]_.~})/-])' folders='(home|root|Users|work|workspace|builds|tmp/[[:alnum:]_.]+)'
  cd "$root"
  if project_files . | xargs -d '\n' grep --binary-files=without-match --line-number --with-filename --extended-regexp \
    "$boundary/$folders/[[:alnum:]_.]"; then
    note "These lines name places of one machine."
    return 1
  fi
}

# The tests of FooTest.cpp are called FooTest.Something; where fixtures or parameters differ, FooVariantTest.Something.
check_suites() {
  cd "$root"
  # shellcheck disable=SC2016  # The dollar signs are awk's.
  project_files 'tests/*.cpp' 'tests/*.mm' | xargs -d '\n' awk '
    /^(TEST|TEST_F|TEST_P|TYPED_TEST)\(/ {
      file = FILENAME
      gsub(/.*\/|\.[a-z]+$/, "", file)
      kind = file ~ /Conformance$/ ? "Conformance" : "Test"
      tested = file
      sub(kind "$", "", tested)
      suite = $0
      gsub(/^[A-Z_]+\(|,.*/, "", suite)
      if ((file !~ kind "$" || suite !~ "^" tested "([A-Z0-9].*)?" kind "$") && !found[suite]++) {
        print FILENAME ":" FNR ": " suite " is not named after its file"
        status = 1
      }
    }
    END { exit status }'
}

# What is sourced is checked with the scripts that source it.
check_scripts() {
  cd "$root"
  project_files scripts .ci | xargs -d '\n' grep --files-with-matches '^#!.*bash' |
    xargs -d '\n' shellcheck --external-sources --check-sourced
}

# On the files of the program; the tests would take as long as all the rest. It asks only how they are compiled.
check_tidy() {
  local folders
  folders=$(printf '|%s' "${source_folders[@]}")
  cd "$root"
  if [[ $(clang-tidy --version) != *"LLVM version 14."* ]]; then
    note "Not checked: the checks are those of Debian 12's clang-tidy, version 14."
    return
  fi
  cmake --preset tidy
  scripts/check-tidy build/tidy "(${folders:1})/.*(?<!Test)\\.cpp"
}
