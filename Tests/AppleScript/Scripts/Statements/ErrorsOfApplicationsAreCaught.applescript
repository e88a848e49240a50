try
tell application "Closed Desk" to count windows
on error number n
n
end try
--> -600
