-- A tiny stack; it doesn't check the types it holds.
local Stack = {}
Stack.__index = Stack

--[[ new() makes an empty stack;
     push and pop work at the top. ]]
function Stack.new()
  return setmetatable({ items = {}, size = 0 }, Stack)
end

function Stack:push(value)
  self.size = self.size + 1
  self.items[self.size] = value
end

function Stack:pop()
  if self.size == 0 then return nil end
  local value = self.items[self.size]
  self.items[self.size] = nil
  self.size = self.size - 1
  return value
end

local help = [[Usage: stack "push" or 'pop']]
print("size: " .. Stack.new().size, help)
return Stack
