# Lays the shipped data beside the program. What a user may have changed since stays: the saved variables.
file(COPY ${FROM}/ DESTINATION ${TO} PATTERN variables.sav EXCLUDE)
if(NOT EXISTS ${TO}/variables.sav)
  file(COPY ${FROM}/variables.sav DESTINATION ${TO})
endif()
