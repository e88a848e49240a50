tell application "Nowhere"
1
end tell
--! -1728 Can’t get application "Nowhere".
--@ 5 21
