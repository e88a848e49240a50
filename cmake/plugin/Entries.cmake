# Included by the build and by each installation. Only an installation knows its prefix; it has no policies set.
cmake_policy(VERSION 3.25)

# Sets RESULT to the path as it is written between double quotes in an Exec line: a quoted string in an escaped one.
function(_deskloom_quote_for_exec result path)
  string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" path "${path}")
  string(REPLACE "\\" "\\\\" path "${path}")
  set(${result} "${path}" PARENT_SCOPE)
endfunction()

# deskloom_write_entries(APPLICATION TEMPLATES PREFIX [STAGE])
#
# Writes the desktop entry and the D-Bus service file of an application whose program is in PREFIX/bin, to PREFIX/share. With a
# STAGE, they are written to STAGE/PREFIX/share, to be moved to the prefix later. TEMPLATES is the folder of their templates, in
# which @programs@ is PREFIX/bin.
function(deskloom_write_entries application templates prefix)
  set(stage "${ARGN}")
  set(data "${stage}${prefix}/share")
  _deskloom_quote_for_exec(programs "${prefix}/bin")
  configure_file("${templates}/${application}.desktop.in" "${data}/applications/${application}.desktop" @ONLY)
  configure_file("${templates}/${application}.service.in" "${data}/dbus-1/services/${application}.service" @ONLY)
endfunction()
