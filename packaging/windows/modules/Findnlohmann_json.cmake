# Headers alone: they are copied out of the system's include folder, where the other headers are those
# of the machine that builds.
set(_copy ${CMAKE_BINARY_DIR}/nlohmann_json)
file(COPY /usr/include/nlohmann DESTINATION ${_copy})
if(NOT TARGET nlohmann_json::nlohmann_json)
  add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
  target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${_copy})
endif()
set(nlohmann_json_FOUND TRUE)
