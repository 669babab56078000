# SPDX-License-Identifier: LGPL-2.1-or-later
# Headers as doxygen reads them: the comment that heads a run of slots, "// 96-101  one ribbon: ...", becomes the heading
# of a group, and describes those of its slots that have no comment of their own.
function close_group() {
    if (open)
        print "    ///@}"
    open = 0
}
function end_heading() {
    if (heading != "") {
        print "    /// @name " heading
        print "    ///@{"
        open = 1
        says = heading
    }
    heading = ""
}
/^    \/\/ [0-9]+(-[0-9]+)?  / {
    close_group()
    heading = $0
    sub(/^ *\/\/ [0-9-]+  /, "", heading)
    next
}
heading != "" && /^    \/\/ / {
    sub(/^ *\/\/ +/, "")
    heading = heading " " $0
    next
}
{ end_heading() }
# Private slots are called by name and so are shown; private members are not.
/^private:/ { hidden = 1 }
/^(public|protected|Q_SIGNALS|private Q_SLOTS|};)/ { hidden = 0 }
hidden { next }
/^(public|private|protected|Q_SIGNALS)/ || /^};/ { close_group() }
/^    [A-Za-z].*\(/ && open && !described && !/\/\/\/</ { print "    /// " says }
{
    described = /^ *\/\/\//
    print
}
