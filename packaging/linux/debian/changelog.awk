# Turns the project's CHANGELOG.md into the form of debian/changelog(5). A version is released at noon, UTC.
function finish() {
  if (version != "") printf "\n -- %s  %s\n\n", contact, date
}

/^## [0-9]/ {
  finish()
  version = $2
  split($4, day, "-")
  date = strftime("%a, %d %b %Y 12:00:00 +0000", mktime(day[1] " " day[2] " " day[3] " 12 00 00"))
  printf "roomlattice (%s) unstable; urgency=medium\n\n", version
  next
}

version != "" && /^- / { sub(/^- /, "  * ") }
version != "" && /^  [^ *]/ { sub(/^  /, "    ") }
version != "" && NF { gsub(/`/, ""); print }

END { finish() }
