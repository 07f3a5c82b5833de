# A locale that writes decimal commas, for tests that numbers do not follow it: what LOCPATH is set to.
find_program(KIV_LOCALEDEF localedef)
set(KIV_TEST_LOCALES "${KivCharacterization_BINARY_DIR}/tests/locales")
if(KIV_LOCALEDEF AND NOT EXISTS "${KIV_TEST_LOCALES}/de_DE.UTF-8")
    file(MAKE_DIRECTORY "${KIV_TEST_LOCALES}")
    execute_process(COMMAND "${KIV_LOCALEDEF}" -c -i de_DE -f UTF-8 "${KIV_TEST_LOCALES}/de_DE.UTF-8"
                    OUTPUT_QUIET ERROR_QUIET)
endif()
