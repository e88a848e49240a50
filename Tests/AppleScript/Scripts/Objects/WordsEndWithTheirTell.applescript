tell application "Test Desk" to get name
window 1
--! -2741 Expected end of line but found number.
