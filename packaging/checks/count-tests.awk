# Counts the tests of the JUnit files that CTest writes: prints "passed failed skipped". Skipped is a test that was
# switched off or that chose to skip itself; a test that could not be started has failed.
/^\t<testcase .* status="run"\/?>$/ { ++passed }
/^\t<testcase .* status="fail"\/?>$/ { ++failed }
/^\t<testcase .* status="disabled"\/?>$/ { ++skipped }
/^\t<testcase .* status="notrun"\/?>$/ { ++notRun }
/^\t\t<skipped message="SKIP_(REGULAR_EXPRESSION_MATCHED|RETURN_CODE)/ { ++choseTo }
END { print passed + 0, failed + notRun - choseTo, skipped + choseTo }
