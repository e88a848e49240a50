# Included by the build, and by each installation, which alone knows its prefix and has no policies set.
cmake_policy(VERSION 3.25)

# Makes of a path what stands for it between the double quotes of an Exec line: a quoted string in an escaped one.
function(quote_for_exec path result)
  string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" path "${path}")
  string(REPLACE "\\" "\\\\" path "${path}")
  set(${result} "${path}" PARENT_SCOPE)
endfunction()

# deskloom_write_entries(APPLICATION TEMPLATES PREFIX [STAGE])
#
# Writes the desktop entry and the D-Bus service file of an application whose program is in PREFIX/bin to where they belong
# below PREFIX: below STAGE, where the files are put together for that place. TEMPLATES is the folder of what they are made
# from, in which @programs@ stands for PREFIX/bin.
function(deskloom_write_entries application templates prefix)
  set(data "${prefix}/share")
  if(ARGC GREATER 3)
    string(PREPEND data "${ARGV3}")
  endif()
  quote_for_exec("${prefix}/bin" programs)
  configure_file("${templates}/${application}.desktop.in" "${data}/applications/${application}.desktop" @ONLY)
  configure_file("${templates}/${application}.service.in" "${data}/dbus-1/services/${application}.service" @ONLY)
endfunction()
