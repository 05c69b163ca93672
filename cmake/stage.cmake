# Copies the shipped data beside the program. The saved variables stay as they are there, since the user may have changed
# them. The README of data is for developers.
file(COPY ${FROM}/ DESTINATION ${TO} PATTERN variables.sav EXCLUDE PATTERN README.md EXCLUDE)
if(NOT EXISTS ${TO}/variables.sav)
  file(COPY ${FROM}/variables.sav DESTINATION ${TO})
endif()
