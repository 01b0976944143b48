// written next
