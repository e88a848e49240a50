# Included by the build and by each installation. Only an installation knows its prefix; it has no policies set.
cmake_policy(VERSION 3.25)

# The extension's ids. Chromium's is made of the key in the extension's manifest.
set(_chromiumExtension "iejphooombbanepeogbpjmgodcepdlbf")
set(_firefoxExtension "gleanery@quillary.com")

# deskloom_write_native_hosts(TEMPLATE PREFIX CONFIGURATION STAGE)
#
# Writes the files by which browsers find PREFIX/lib/deskloom/gleanery-tabs: Chromium's to the folder CONFIGURATION, Firefox's to
# the PREFIX. With a STAGE that is not empty, they are written below it, to be moved later. Sets native_hosts to the files, without
# the STAGE.
function(deskloom_write_native_hosts template prefix configuration stage)
  set(name "com.quillary.gleanery.tabs.json")
  string(REGEX REPLACE "([\"\\\\])" "\\\\\\1" program "${prefix}/lib/deskloom/gleanery-tabs")
  set(allowed "\"allowed_origins\": [\"chrome-extension://${_chromiumExtension}/\"]")
  set(chromium "${configuration}/chromium/native-messaging-hosts/${name}")
  configure_file("${template}" "${stage}${chromium}" @ONLY)
  set(allowed "\"allowed_extensions\": [\"${_firefoxExtension}\"]")
  set(firefox "${prefix}/lib/mozilla/native-messaging-hosts/${name}")
  configure_file("${template}" "${stage}${firefox}" @ONLY)
  set(native_hosts "${chromium}" "${firefox}" PARENT_SCOPE)
endfunction()
