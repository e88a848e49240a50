# Small programs: before KWin permits a program to see the windows, it reads and hashes the whole file twice, which takes some 9 ms
# for each MB. What is written here is not noticeably slower if it is optimised for size. It applies to all targets of the
# including folder and its subfolders that are added after it.
add_compile_options("$<$<CONFIG:Release>:-Os;-ffunction-sections;-fdata-sections>")
# Unused functions and data are left out, and the table of symbols too.
add_link_options("$<$<CONFIG:Release>:-Wl,--gc-sections;-s>")
