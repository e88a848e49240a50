tell application "Test Desk" to get icon of process 1
--! -1723 Icons are secret.
--app Test Desk
