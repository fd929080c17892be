# frozen_string_literal: true
# A to-do list; it's saved as one line per item.
require 'json'

class TodoList
  attr_reader :items

  def initialize(path)
    @path = path
    @items = File.exist?(path) ? File.readlines(path, chomp: true) : []
  end

  def add(text)
    raise ArgumentError, "empty item" if text.strip.empty?
    @items << text
  end

=begin
Saving writes the whole file again;
that's fine for a short list.
=end
  def save
    File.write(@path, @items.join("\n") + "\n")
    puts "saved #{@items.size} items to #{@path}"
  end
end
