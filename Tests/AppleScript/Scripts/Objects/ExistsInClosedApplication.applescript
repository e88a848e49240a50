tell application "Closed Desk" to exists window 1
--! -600 Application isn’t running.
