# Makes CATALOGUE from the plug-in's texts in OWN and the runtime's in RUNTIME. A text that is in both is taken from OWN.
cmake_policy(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run("${MSGUNFMT}" --output-file=${CATALOGUE}.own.po "${OWN}")
run("${MSGUNFMT}" --output-file=${CATALOGUE}.runtime.po "${RUNTIME}")
run("${MSGCAT}" --use-first --output-file=${CATALOGUE}.po "${CATALOGUE}.own.po" "${CATALOGUE}.runtime.po")
run("${MSGFMT}" --endianness=little --output-file=${CATALOGUE} "${CATALOGUE}.po")
file(REMOVE "${CATALOGUE}.own.po" "${CATALOGUE}.runtime.po" "${CATALOGUE}.po")
