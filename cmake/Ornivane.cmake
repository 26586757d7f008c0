# The flags of every target of this project, and the shape of its libraries: one static library a folder,
# its sources found by name, so that a new class is a new file and nothing else.

add_library(ornivane_flags INTERFACE)
target_compile_options(ornivane_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees overlapping copies in every "x" + std::string at -O3 (its bug 105651).
  target_compile_options(ornivane_flags INTERFACE -Wno-restrict)
endif()
if(ORNIVANE_WERROR)
  target_compile_options(ornivane_flags INTERFACE -Werror)
endif()
if(ORNIVANE_SANITIZE)
  # Under the sanitizers GCC 12 takes the empty std::variant of a Value for an uninitialised one.
  target_compile_options(ornivane_flags INTERFACE -Wno-maybe-uninitialized)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ORNIVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
target_include_directories(ornivane_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

# ornivane_library(name DEPENDS ...): the logic of src/<name>, every .cpp that is not a form. Links no Qt.
function(ornivane_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/(frm[^/]*|main)\\.cpp$")
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC ornivane_flags ${ARG_DEPENDS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE ornivane_flags ${ARG_DEPENDS})
  endif()
  set_property(GLOBAL APPEND PROPERTY ORNIVANE_LOGIC ${name})
endfunction()

# ornivane_forms(name DEPENDS ...): the forms of src/<name>, its frm*.cpp, as the library <name>_forms.
function(ornivane_forms name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/frm*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/${name}/frm*.h)
  if(sources)
    add_library(${name}_forms STATIC ${sources})
    set_target_properties(${name}_forms PROPERTIES AUTOMOC ON)
    target_link_libraries(${name}_forms PUBLIC ornivane_flags ${ARG_DEPENDS})
  else()
    add_library(${name}_forms INTERFACE)
    target_link_libraries(${name}_forms INTERFACE ornivane_flags ${ARG_DEPENDS})
  endif()
endfunction()

# ornivane_test(folder DEPENDS ...): one test program for tests/<folder>.
function(ornivane_test folder)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_executable(test_${folder} ${sources})
    target_include_directories(test_${folder} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR})
    target_link_libraries(test_${folder} PRIVATE ornivane_flags ${ARG_DEPENDS} GTest::gtest GTest::gmock GTest::gtest_main)
    # What is tested is compiled as what users run; the tests around it are compiled in half the time.
    target_compile_options(test_${folder} PRIVATE -O0 -g1)
    target_compile_definitions(test_${folder} PRIVATE SOURCE_DIR="${PROJECT_SOURCE_DIR}" BINARY_DIR="${PROJECT_BINARY_DIR}")
    gtest_discover_tests(test_${folder} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  endif()
endfunction()
