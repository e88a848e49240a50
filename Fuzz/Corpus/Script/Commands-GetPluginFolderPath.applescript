    tell application "Deskloom" to get plugin folder path
--> "/plugins"
