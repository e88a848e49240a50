tell application "Test Desk"
    set x to 1
    set y to 2
    {title of tab y of window x, URL of tab y of window x}
end tell
--> {"Mail", "https://mail.example/"}
