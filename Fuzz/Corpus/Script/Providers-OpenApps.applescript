    tell application "System Events"
        set result to ""
        
        repeat with element in (get properties of every process where background only is false)
            set result to ((result & (get name of element) & linefeed as string) & (get POSIX path of file of element) & linefeed as string)
        end repeat
    end tell
--> "xterm\n/usr/bin/xterm\neditor\n/usr/share/applications/editor.desktop\n"
