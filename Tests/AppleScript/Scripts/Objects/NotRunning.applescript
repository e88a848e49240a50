tell application "Closed Desk" to get number of windows
--! -600 Application isn’t running.
--app Closed Desk
