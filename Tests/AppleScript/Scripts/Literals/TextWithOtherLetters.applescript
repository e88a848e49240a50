"naïve 日本 😀"
--> "naïve 日本 😀"
