tell application "Slow Desk"
name of every process
end tell
--! -1712 AppleEvent timed out.
--app Slow Desk
--@ 29 21
